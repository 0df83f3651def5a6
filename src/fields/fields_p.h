// Helpers shared by the field classes.
#pragma once

#include "mydatastream_p.h"

namespace Bedrock {

// The archive form of integer and bool fields: one 32-bit integer.
inline void serializeInt32(MyDataStream& stream, int& value)
{
    if (stream.IsStoring())
        stream << qint32(value);
    else
        readKeeping(stream, value);
}

} // namespace Bedrock
