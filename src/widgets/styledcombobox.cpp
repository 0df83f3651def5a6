#include "styledcombobox.h"

#include "catalogue.h"
#include "dependantinfo.h"
#include "translation_p.h"

#include <QCoreApplication>
#include <QWheelEvent>

#include <iterator>

namespace {

const QString s_comboSheet = QStringLiteral(
    "QComboBox {color:black;border: 1px solid #32414B;                                     "
    "border-radius:4px;padding: 1px 0px 1px 3px;}                          "
    "QComboBox::focus { background-color:#DEAC37;}");

int firstItemWithData(StyledComboBox* box, int data)
{
    const int n = box->GetCount();
    for (int i = 0; i < n; ++i) {
        if (box->GetItemData(i) == data)
            return i;
    }
    return -1;
}

} // namespace

StyledComboBox::StyledComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

int StyledComboBox::AddString(char const* text)
{
    addItem(text ? QString::fromUtf8(text) : QString());
    return count() - 1;
}

void StyledComboBox::SetItemData(int index, int data)
{
    setItemData(index, data, Qt::UserRole);
}

int StyledComboBox::GetItemData(int index)
{
    return itemData(index, Qt::UserRole).toInt();
}

int StyledComboBox::GetCount()
{
    return count();
}

void StyledComboBox::SetCurSel(int index)
{
    setCurrentIndex(index);
}

int StyledComboBox::GetCurSel()
{
    return currentIndex();
}

int StyledComboBox::GetCurSelData()
{
    return GetItemData(currentIndex());
}

bool StyledComboBox::SetCurSelData(int data)
{
    const int index = firstItemWithData(this, data);
    setCurrentIndex(index >= 0 ? index : 0);
    return index >= 0;
}

void StyledComboBox::EnableWindow(bool)
{ }

void StyledComboBox::wheelEvent(QWheelEvent* e)
{
    // Ignored, so the event goes up to the page's scroll area.
    e->ignore();
}

CT1ComboBox::CT1ComboBox(QWidget* parent)
    : StyledComboBox(parent)
{
    setStyleSheet(s_comboSheet);
}

int CT1ComboBox::GetCurSelData()
{
    return StyledComboBox::GetCurSelData();
}

bool CT1ComboBox::SetCurSelData(int data)
{
    return StyledComboBox::SetCurSelData(data);
}

void CT1ComboBox::addTableRow(const char* latin1Text, int data)
{
    addItem(Bedrock::translatedTableText(latin1Text), data);
}

void CT1ComboBox::LoadRelationships()
{
    for (int i = 0; i < int(std::size(globalRelationships)) && globalRelationships[i].m_name[0];
         ++i)
        addTableRow(globalRelationships[i].m_name, i);
    SetCurSel(0);
}

void CT1ComboBox::LoadInfirmTypes()
{
    for (const _InfirmStru& row : globalInfirms)
        addTableRow(row.m_name, row.m_code);
    SetCurSel(0);
}

void CT1ComboBox::loadRelationCode(STRUCT_GENERAL_RELATION_CODE_INFO const* rows, int count)
{
    for (int i = 0; rows && i < count; ++i)
        addTableRow(rows[i].text, rows[i].code);
    SetCurSel(0);
}

void CT1ComboBox::LoadProvs()
{
    for (int i = 0; i <= 13; ++i)
        addTableRow(Global_Provs_Info[i].name, i);
    SetCurSel(0);
}

void CT1ComboBox::LoadProvsPlus1()
{
    LoadProvs();
    addItem(tr("Outside Canada"), 14);
}

void CT1ComboBox::LoadProvForNonResi()
{
    for (int i = 14; i <= 17; ++i)
        addTableRow(Global_Provs_Info[i].name, i);
    SetCurSel(0);
}

void CT1ComboBox::LoadCAUSProvs()
{
    for (const STRUCT_PROVINCE2_INFO& row : Global2_Provs_Info)
        addTableRow(row.name, row.id);
    SetCurSel(0);
}

void CT1ComboBox::LoadCountries()
{
    for (const STRUCT_COUNTRY_INFO& row : Global_Countries_Info)
        addTableRow(row.name, row.id);
    SetCurSel(0);
}

void CT1ComboBox::LoadCurrency()
{
    for (const STRUCT_CURRENCY_INFO& row : Global_Currency_Info)
        addTableRow(row.name, row.code);
    SetCurSel(0);
}

void CT1ComboBox::LoadT106TPM()
{
    for (const STRUCT_CODE_INFO& row : Global_T106_TPM_CODE_Info)
        addTableRow(row.text, row.code);
    SetCurSel(0);
}

void CT1ComboBox::LoadSKGraduateRententionProgramType()
{
    const QString programs[]
        = { tr("Select a program"), tr("a certificate program"), tr("a diploma program"),
            tr("3-year undergraduate"), tr("4-year undergraduate") };
    for (const QString& program : programs)
        addItem(program, count());
    SetCurSel(0);
}

void CT1ComboBox::LoadTaxForms(unsigned char, std::list<unsigned int>& forms, CString const& filter)
{
    addItem(tr("Choose a Form Type"), 0);
    for (unsigned int form : forms) {
        if (form >= unsigned(ENUM_FORM_COUNT) || !Global_Forms_Info[form].title)
            continue;
        const QString title = QString::fromLatin1(Global_Forms_Info[form].title);
        if (filter.isEmpty() || title.contains(filter, Qt::CaseInsensitive))
            addItem(title, int(form));
    }
    SetCurSel(0);
}

int ComboBoxSelectByData(StyledComboBox* box, int data, int fallbackIndex)
{
    if (!box)
        return fallbackIndex;
    const int index = firstItemWithData(box, data);
    if (index >= 0) {
        box->SetCurSel(index);
        return index;
    }
    if (fallbackIndex >= 0)
        box->SetCurSel(fallbackIndex);
    return fallbackIndex;
}
