// Fixed-width barcode items and the ordered list that flushes them into a block.
#pragma once

#include "libbedrock_export.h"

#include "cstring.h"

#include <list>

class CMemoryBlock;
class FixedBarcodeItem;

/*
 * The items of a barcode in creation order. The list only points to its
 * items; an item removes itself when destroyed, and the list forgets its
 * items when it goes first.
 */
class LIBBEDROCK_EXPORT List_FixedBarcodeItem
{
public:
    List_FixedBarcodeItem() = default;
    ~List_FixedBarcodeItem();
    List_FixedBarcodeItem(const List_FixedBarcodeItem&) = delete;
    List_FixedBarcodeItem& operator=(const List_FixedBarcodeItem&) = delete;

    // Appends exactly width bytes of each item; returns the bytes appended.
    int OutputToMemoryBlock(CMemoryBlock& block);
    int count() const { return int(m_items.size()); }

private:
    friend class FixedBarcodeItem;
    std::list<FixedBarcodeItem*> m_items;
};

/*
 * One fixed-width field of a barcode. The width never changes, so the byte
 * position of every field is settled when the items are created. Widths are
 * bytes: a CString goes in as UTF-8 and may be cut inside a character.
 */
class LIBBEDROCK_EXPORT FixedBarcodeItem
{
public:
    // Without an initial value the bytes are unset: set a value before output.
    FixedBarcodeItem(List_FixedBarcodeItem* list, int width, char const* initial = nullptr);
    virtual ~FixedBarcodeItem();
    FixedBarcodeItem(const FixedBarcodeItem&) = delete;
    FixedBarcodeItem& operator=(const FixedBarcodeItem&) = delete;

    void SetAllCharsTo(char c);
    // Copies up to width bytes to the start; the rest stays. Returns strlen(s).
    int SetValue(char const* s);
    // Right-justified, filled on the left with pad. Returns strlen(s).
    int SetValueLeftPadding(char const* s, char pad);
    // Left-justified, filled on the right with pad. Returns strlen(s).
    int SetValueRightPadding(char const* s, char pad);
    int SetValue(CString const& s);
    int SetValueLeftPadding(CString const& s, char pad);
    int SetValueRightPadding(CString const& s, char pad);

    int GetWidth() const { return m_width; }
    // width bytes and a terminating 0; null for a width below 1.
    const char* GetValue() const { return m_value; }

private:
    friend class List_FixedBarcodeItem;
    int m_width;
    char* m_value;
    List_FixedBarcodeItem* m_list;
};
