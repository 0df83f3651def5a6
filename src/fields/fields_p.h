// Helpers shared by the field classes.
#pragma once

#include "mydatastream_p.h"

#include <QString>

#include <initializer_list>

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

/*
 * Fills a record template as successive QString::arg calls would, one marker
 * per argument in order (%1, %2, %3). When no argument but the last holds a
 * '%', no later pass can find a marker inside an earlier argument, so the
 * text is put together directly; otherwise the arg passes run as they always did.
 */
QString fillTemplate(QLatin1String pattern, std::initializer_list<QString> args);

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
