// Helpers shared by the field classes.
#pragma once

#include "mydatastream_p.h"

class CField;

namespace Bedrock {

// The archive form of integer and bool fields: one 32-bit integer.
inline void serializeInt32(MyDataStream& stream, int& value)
{
    if (stream.IsStoring())
        stream << qint32(value);
    else
        readKeeping(stream, value);
}

// Pairwise value operations of field lists. Both fields carry the same type
// tag (callers check); only the value moves or is compared, never names or
// bounds. Date-time fields take part only where `withDateTime` says so.
bool fieldValuesDiffer(CField* a, CField* b, bool withDateTime);
void assignFieldValue(CField* from, CField* to, bool withDateTime);

// Year rollover of one field, steered by its attribute: an integer marked
// to increment goes up by one, an amount not marked to keep becomes 0, a date
// marked to advance or clear does so (all unless keepValues); a text marked
// to clear is emptied whatever keepValues says.
void rollFieldToNewYear(CField* field, bool keepValues);

} // namespace Bedrock
