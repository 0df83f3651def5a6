// An archive stream over bytes in memory, for store and load round trips.
#pragma once

#include "mydatastream.h"

#include <QBuffer>
#include <QByteArray>

// Runs write(MyDataStream&) on a storing stream and returns what it wrote.
template<typename Write> QByteArray storeBytes(Write&& write)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream stream(&buffer);
    write(stream);
    return bytes;
}

// Runs read(MyDataStream&) on a loading stream over `bytes` and returns how many
// bytes it consumed.
template<typename Read> qint64 loadBytes(const QByteArray& bytes, Read&& read)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    MyDataStream stream(&buffer);
    read(stream);
    return buffer.pos();
}
