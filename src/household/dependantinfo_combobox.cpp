// The dependant list shown in a combo box. Kept apart from the records so that
// the rest of the household code needs no widget.
#include "dependantinfo.h"
#include "styledcombobox.h"

#include <QCoreApplication>

void DependantInfoStruct::FillComboBox(StyledComboBox* box, const char* firstItem)
{
    if (!box)
        return;
    // A fill replaces what the box showed: a page refills it when the list changes.
    box->clear();
    if (m_nCount <= 0 || !m_pData) {
        box->addItem(tr("No dependant information was entered."));
        box->setEnabled(false);
        return;
    }
    box->setEnabled(true);
    box->addItem(firstItem ? QString::fromUtf8(firstItem) : tr("Please select a dependant"), 0);
    CString text;
    for (int i = 0; i < m_nCount; ++i) {
        if (m_pData[i].MakeComboBoxString(text))
            box->addItem(text, i + 1);
    }
}
