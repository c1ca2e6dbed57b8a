#pragma once

#include <QDir>
#include <QFile>
#include <QTest>

namespace perchly {

inline QByteArray readFile(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file and makes the folders that it stands in.
inline void writeFile(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Writes a shell script that can be started.
inline void writeProgram(const QString &path, const QByteArray &script) {
    writeFile(path, "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// The file of a desktop entry of the test's user.
inline QString desktopEntryPath(const QString &name) {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications/") + name +
           QStringLiteral(".desktop");
}

/// Installs an application; the lines come beside its type and name.
inline void installApplication(const QString &name, const QByteArray &lines) {
    writeFile(desktopEntryPath(name), "[Desktop Entry]\nType=Application\nName=X\n" + lines + '\n');
}

/// Makes an application the one that opens files of a type.
inline void chooseApplication(const QByteArray &type, const QByteArray &name) {
    writeFile(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"),
              "[Default Applications]\n" + type + '=' + name + ".desktop\n");
}

} // namespace perchly
