// The combo boxes of the forms: one integer per item, read and set by that
// integer, and a wheel that never changes a value by accident.
#pragma once

#include "cstring.h"
#include "jurisdictiontables.h"
#include "libbedrock_export.h"

#include <QComboBox>

#include <list>

/*
 * Item data is an int under Qt::UserRole; an item added without data reads as 0.
 * The operations keep the names of an older toolkit. The wheel is ignored, so it
 * scrolls the page rather than the value; the box takes the focus by Tab or click.
 */
class LIBBEDROCK_EXPORT StyledComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit StyledComboBox(QWidget* parent = nullptr);

    // Appends an item (text read as UTF-8, null as empty) without data; its index.
    int AddString(char const* text);
    void SetItemData(int index, int data);
    int GetItemData(int index);
    int GetCount();
    void SetCurSel(int index);
    int GetCurSel();
    int GetCurSelData();
    // Selects the first item holding `data`. Without one, selects item 0 (the
    // "choose" row of most lists) and returns false.
    bool SetCurSelData(int data);
    // Kept for old callers; does nothing.
    void EnableWindow(bool enable);

protected:
    void wheelEvent(QWheelEvent* e) override;
};

// A relation code row as the forms' code tables hold it: the code and its text.
using STRUCT_GENERAL_RELATION_CODE_INFO = STRUCT_CODE_INFO;

/*
 * A StyledComboBox with the forms' style and loaders over the library's tables.
 * Every loader appends (it clears nothing) and ends by selecting item 0. Table
 * texts are Latin-1; they show translated where the library's translation has them.
 */
class LIBBEDROCK_EXPORT CT1ComboBox : public StyledComboBox
{
    Q_OBJECT

public:
    explicit CT1ComboBox(QWidget* parent = nullptr);

    int GetCurSelData();
    bool SetCurSelData(int data);

    void LoadRelationships(); // data 0..14
    void LoadInfirmTypes(); // data 0..2
    // `count` rows, none when it is below 1; data is each row's code.
    void loadRelationCode(STRUCT_GENERAL_RELATION_CODE_INFO const* rows, int count);
    void LoadProvs(); // Canada's jurisdictions and the empty choice, data 0..13
    void LoadProvsPlus1(); // the same, then "Outside Canada" with data 14
    void LoadProvForNonResi(); // data 14..17
    void LoadCAUSProvs(); // provinces and states, data is the row's id
    void LoadCountries();
    void LoadCurrency();
    void LoadT106TPM();
    void LoadSKGraduateRententionProgramType(); // data is the item's index
    // "Choose a Form Type" (data 0), then each form of `forms` in list order whose
    // long title contains `filter`, case aside (all when it is empty); data is the
    // form number. Numbers outside the catalogue are skipped. The first argument
    // has no effect.
    void LoadTaxForms(unsigned char, std::list<unsigned int>& forms, CString const& filter);

private:
    void addTableRow(const char* latin1Text, int data);
};

// Selects the first item holding `data` and returns its index. Without one, a
// fallbackIndex of 0 or more is selected and returned; a negative one is
// returned and the selection stays.
LIBBEDROCK_EXPORT int ComboBoxSelectByData(StyledComboBox* box, int data, int fallbackIndex);
