// MyDataStream: the binary stream of the return archive.
#pragma once

#include "libbedrock_export.h"

#include <QDataStream>

/*
 * A little-endian QDataStream that can say whether it is loading or storing.
 * The two questions are put to the device separately: a device open for both
 * answers true to both, so callers decide which they ask first. The stream
 * version and floating-point precision stay at the framework's defaults, so a
 * `float` takes 8 bytes on the stream like a `double`.
 */
class LIBBEDROCK_EXPORT MyDataStream : public QDataStream
{
public:
    explicit MyDataStream(QIODevice* device);

    bool IsLoading() const;
    bool IsStoring() const;
    int Read(char* buffer, int size);
    int Write(const char* buffer, int size);
};
