// The common round of the row-archive fuzz targets: the first byte picks an
// archive version, the rest is loaded through a seekable buffer and through a
// device that hides its size; each result is checked, then stored again.
#pragma once

#include "mydatastream.h"
#include "sequentialsource.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>

template<typename Rows, std::size_t N, typename Check>
void loadCheckAndStore(const std::uint8_t* data, std::size_t size, const int (&versions)[N],
                       Check check)
{
    if (size < 1)
        return;
    const int version = versions[data[0] % N];
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));

    auto round = [&](QIODevice& device) {
        MyDataStream in(&device);
        Rows rows;
        rows.serilize(version, in);
        check(rows, bytes.size());
        QByteArray out;
        QBuffer sink(&out);
        sink.open(QIODevice::WriteOnly);
        MyDataStream stream(&sink);
        rows.serilize(version, stream);
    };
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    round(buffer);
    SequentialSource source(bytes);
    round(source);
}
