#include "MediaScripts.h"

#include <QLocale>

#include <cmath>

namespace perchly {

namespace {

constexpr auto readText =
    R"js(ObjC.import('Foundation');
function run() {
    if (!$.NSBundle.bundleWithPath('/System/Library/PrivateFrameworks/MediaRemote.framework/').load) throw Error('MediaRemote unavailable');
    const request = $.NSClassFromString('MRNowPlayingRequest');
    const item = request.localNowPlayingItem;
    if (!item || !item.nowPlayingInfo) return 'null';
    const info = item.nowPlayingInfo;
    function value(key) { const v = info.objectForKey(key); return v ? ObjC.unwrap(v) : null; }
    const title = value('kMRMediaRemoteNowPlayingInfoTitle');
    if (!title) return 'null';
    let source = 'Media';
    try { source = ObjC.unwrap(request.localNowPlayingPlayerPath.client.displayName) || source; } catch (_) {}
    let elapsedTime = value('kMRMediaRemoteNowPlayingInfoElapsedTime');
    try { elapsedTime = Number(item.metadata.calculatedPlaybackPosition); } catch (_) {}
    const duration = value('kMRMediaRemoteNowPlayingInfoDuration');
    return JSON.stringify({elapsedTime: elapsedTime, duration: duration, title: String(title), artist: String(value('kMRMediaRemoteNowPlayingInfoArtist') || ''), source: source, playing: Number(value('kMRMediaRemoteNowPlayingInfoPlaybackRate') || 0) > 0});
})js";

constexpr auto sendPrefix = R"js(ObjC.import('Foundation');
$.NSBundle.bundleWithPath('/System/Library/PrivateFrameworks/MediaRemote.framework/').load;
)js";

constexpr auto sendCommand =
    R"js(ObjC.bindFunction('MRMediaRemoteSendCommand', ['bool', ['int', 'id']]); const accepted = $.MRMediaRemoteSendCommand(%1, $.NSDictionary.alloc.init);)js";

constexpr auto sendPosition =
    R"js(ObjC.bindFunction('MRMediaRemoteSetElapsedTime', ['void', ['double']]); $.MRMediaRemoteSetElapsedTime(%1); const accepted = true;)js";

constexpr auto sendSuffix = R"js(
// Keep the sender alive while the system delivers the command to the browser.
$.NSRunLoop.currentRunLoop.runUntilDate($.NSDate.dateWithTimeIntervalSinceNow(0.6));
JSON.stringify(accepted);)js";

constexpr auto playerText = R"(tell application id "%1"
%2
return player state as string
end tell)";

/// The shortest decimal text that reads back as this number, with a fraction or an exponent.
QString decimal(double number) {
    const bool isTiny = number != 0 && std::abs(number) < 1e-4;
    const auto text = QString::number(number, isTiny ? 'g' : 'f', QLocale::FloatingPointShortest);
    return isTiny || text.contains(u'.') ? text : text + QStringLiteral(".0");
}

QString sendBody(const char *body, const QString &argument) {
    return QString::fromUtf8(sendPrefix) + QString::fromUtf8(body).arg(argument) +
           QString::fromUtf8(sendSuffix);
}

} // namespace

QString readScript() {
    return QString::fromUtf8(readText);
}

std::optional<QString> sendScript(MediaPlaybackCommand command, std::optional<double> position) {
    if (!isSeek(command)) {
        return sendBody(sendCommand, QString::number(int(command)));
    }
    if (!position || !std::isfinite(*position)) {
        return std::nullopt;
    }
    return sendBody(sendPosition, decimal(*position));
}

QString playerScript(const QString &playerID, const QString &word) {
    return QString::fromUtf8(playerText).arg(playerID, word);
}

} // namespace perchly
