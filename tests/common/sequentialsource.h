// A read-only device that hides its size, like a pipe or a socket, for the
// tests and fuzz targets of readers that must not trust a size from the input.
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <cstring>

class SequentialSource : public QIODevice
{
public:
    explicit SequentialSource(const QByteArray& bytes)
        : m_bytes(bytes)
    {
        open(ReadOnly);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 max) override
    {
        const qint64 n = std::min<qint64>(max, m_bytes.size() - m_at);
        std::memcpy(data, m_bytes.constData() + m_at, size_t(n));
        m_at += n;
        return n;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_at = 0;
};
