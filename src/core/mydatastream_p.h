// Reading helpers of the archive stream, for the library's own classes.
#pragma once

#include "mydatastream.h"

namespace Bedrock {

// Reads one value through the stream's operator. A cut archive leaves `value`
// as it was: bad archive content never replaces what an object holds.
template<typename T> bool readKeeping(MyDataStream& stream, T& value)
{
    T read {};
    stream >> read;
    if (stream.status() != QDataStream::Ok)
        return false;
    value = read;
    return true;
}

} // namespace Bedrock
