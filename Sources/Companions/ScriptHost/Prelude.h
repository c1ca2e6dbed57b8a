#pragma once

namespace perchly {

/// The functions that scripts may call. They use a few native functions that scripts cannot reach.
/// Calls without parentheses, such as `.load`, are getters. The run loop returns at once, since a
/// command has reached its player before it returns.
inline constexpr char prelude[] = R"js((function (global, native) {
    'use strict';
    function getters(table) {
        var object = {};
        Object.keys(table).forEach(function (name) {
            Object.defineProperty(object, name, {get: table[name]});
        });
        return Object.freeze(object);
    }
    function always(value) { return function () { return value; }; }
    var framework = '/System/Library/PrivateFrameworks/MediaRemote.framework/';
    var none = getters({load: always(false)});
    var mediaRemote = getters({load: native.load});
    function information(session) {
        var values = Object.create(null);
        values.kMRMediaRemoteNowPlayingInfoTitle = session.title;
        values.kMRMediaRemoteNowPlayingInfoArtist = session.artist;
        values.kMRMediaRemoteNowPlayingInfoElapsedTime = session.elapsedTime;
        values.kMRMediaRemoteNowPlayingInfoDuration = session.duration;
        values.kMRMediaRemoteNowPlayingInfoPlaybackRate = session.rate;
        return Object.freeze({objectForKey: function (key) { return values[key]; }});
    }
    var request = getters({
        localNowPlayingItem: function () {
            var session = native.session();
            return session && getters({
                nowPlayingInfo: function () { return information(session); },
                metadata: always(getters({calculatedPlaybackPosition: always(session.elapsedTime)}))
            });
        },
        localNowPlayingPlayerPath: function () {
            var session = native.session();
            return session && getters({client: always(getters({displayName: always(session.source)}))});
        }
    });
    var bridge = {
        NSBundle: Object.freeze({bundleWithPath: function (path) { return path === framework ? mediaRemote : none; }}),
        NSClassFromString: function (name) { return name === 'MRNowPlayingRequest' ? request : null; },
        NSDictionary: getters({alloc: always(getters({init: function () { return Object.freeze({}); }}))}),
        NSDate: Object.freeze({dateWithTimeIntervalSinceNow: function (seconds) { return Number(seconds); }}),
        NSRunLoop: getters({currentRunLoop: always(Object.freeze({runUntilDate: function () {}}))})
    };
    var functions = Object.create(null);
    functions.MRMediaRemoteSendCommand = function (command) { return native.send(command); };
    functions.MRMediaRemoteSetElapsedTime = function (position) { native.setElapsedTime(position); };
    global.$ = bridge;
    global.ObjC = Object.freeze({
        'import': function (name) { if (name !== 'Foundation') throw Error('No framework ' + name); },
        unwrap: function (value) { return value; },
        bindFunction: function (name) {
            if (!functions[name]) throw Error('No function ' + name);
            bridge[name] = functions[name];
        }
    });
    delete global.Duktape;
}))js";

} // namespace perchly
