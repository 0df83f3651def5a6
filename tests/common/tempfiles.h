// Files written for a test into a temporary folder that the caller keeps alive.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

// Writes `bytes` to `name` in `dir` and returns the path; empty when it fails.
inline QString writeTempFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes)
{
    const QString path = dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return path;
}
