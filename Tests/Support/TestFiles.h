#pragma once

#include <QDir>
#include <QFile>
#include <QTest>

namespace perchly {

inline QByteArray readFile(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file, creating its folders.
inline void writeFile(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Writes an executable shell script.
inline void writeProgram(const QString &path, const QByteArray &script) {
    writeFile(path, "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// The path of a desktop entry in the user's data folder.
inline QString desktopEntryPath(const QString &name) {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications/") + name +
           QStringLiteral(".desktop");
}

/// Installs an application, with these lines in its desktop entry.
inline void installApplication(const QString &name, const QByteArray &lines) {
    writeFile(desktopEntryPath(name), "[Desktop Entry]\nType=Application\nName=X\n" + lines + '\n');
}

/// Makes an application the default for a MIME type.
inline void chooseApplication(const QByteArray &type, const QByteArray &name) {
    writeFile(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"),
              "[Default Applications]\n" + type + '=' + name + ".desktop\n");
}

} // namespace perchly
