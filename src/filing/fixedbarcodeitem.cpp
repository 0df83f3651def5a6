#include "fixedbarcodeitem.h"

#include "cmemoryblock.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

int lengthOf(const char* s)
{
    return s ? int(std::min<size_t>(std::strlen(s), INT_MAX)) : 0;
}

} // namespace

List_FixedBarcodeItem::~List_FixedBarcodeItem()
{
    for (FixedBarcodeItem* item : m_items)
        item->m_list = nullptr;
}

int List_FixedBarcodeItem::OutputToMemoryBlock(CMemoryBlock& block)
{
    int total = 0;
    for (const FixedBarcodeItem* item : m_items) {
        if (item->m_width > 0) {
            block.Append(item->m_value, item->m_width);
            total += item->m_width;
        }
    }
    return total;
}

FixedBarcodeItem::FixedBarcodeItem(List_FixedBarcodeItem* list, int width, char const* initial)
    : m_width(width)
    , m_value(nullptr)
    , m_list(list)
{
    if (m_width >= 1) {
        m_value = new char[size_t(m_width) + 1];
        if (initial)
            std::strncpy(m_value, initial, size_t(m_width));
        m_value[m_width] = '\0';
    }
    if (m_list)
        m_list->m_items.push_back(this);
}

FixedBarcodeItem::~FixedBarcodeItem()
{
    if (m_list)
        m_list->m_items.remove(this);
    delete[] m_value;
}

void FixedBarcodeItem::SetAllCharsTo(char c)
{
    if (m_value)
        std::memset(m_value, c, size_t(m_width));
}

int FixedBarcodeItem::SetValue(char const* s)
{
    const int len = lengthOf(s);
    if (m_value && len > 0)
        std::memcpy(m_value, s, size_t(std::min(m_width, len)));
    return len;
}

int FixedBarcodeItem::SetValueLeftPadding(char const* s, char pad)
{
    const int len = lengthOf(s);
    if (!m_value)
        return len;
    if (len < m_width) {
        std::memset(m_value, pad, size_t(m_width - len));
        if (len > 0)
            std::memcpy(m_value + (m_width - len), s, size_t(len));
    } else {
        std::memcpy(m_value, s, size_t(m_width));
    }
    return len;
}

int FixedBarcodeItem::SetValueRightPadding(char const* s, char pad)
{
    const int len = lengthOf(s);
    if (!m_value)
        return len;
    const int copied = std::min(m_width, len);
    if (copied > 0)
        std::memcpy(m_value, s, size_t(copied));
    if (copied < m_width)
        std::memset(m_value + copied, pad, size_t(m_width - copied));
    return len;
}

int FixedBarcodeItem::SetValue(CString const& s)
{
    return SetValue(s.toUtf8().constData());
}

int FixedBarcodeItem::SetValueLeftPadding(CString const& s, char pad)
{
    return SetValueLeftPadding(s.toUtf8().constData(), pad);
}

int FixedBarcodeItem::SetValueRightPadding(CString const& s, char pad)
{
    return SetValueRightPadding(s.toUtf8().constData(), pad);
}
