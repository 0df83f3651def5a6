#include "cmemoryblock.h"

#include <QByteArray>

namespace {

// The markers are filled one at a time, field number first, so a value that
// holds "%3" takes the index meant for the repeated form; old records were
// built that way and the caller keeps such values out.
void appendRecord(CMemoryBlock& block, const QString& record)
{
    const QByteArray bytes = record.toUtf8();
    block.Append(bytes.constData(), int(bytes.size()));
}

} // namespace

void CMemoryBlock::AppendT1013Field(int field, CString& value)
{
    appendRecord(*this, QStringLiteral("%1%2*").arg(field, 3).arg(value));
}

void CMemoryBlock::AppendT1013Field(int field, char const* value)
{
    CString text(value ? value : "");
    AppendT1013Field(field, text);
}

void CMemoryBlock::AppendT1013Field(int field, int value)
{
    appendRecord(*this, QStringLiteral("%1%2*").arg(field, 3).arg(value));
}

void CMemoryBlock::AppendT1013FieldRecord(int field, int index, CString& value)
{
    appendRecord(*this, QStringLiteral("%1%2+%3*").arg(field, 3).arg(value).arg(index));
}

void CMemoryBlock::AppendT1013FieldRecord(int field, int index, int value)
{
    appendRecord(*this, QStringLiteral("%1%2+%3*").arg(field, 3).arg(value).arg(index));
}
