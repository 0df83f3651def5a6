#include "worksheetpages.h"

#include "basetaxpage.h"
#include "cwsageamtdata.h"
#include "cwsdepamtdata.h"
#include "cwsmedicalexpadjustmentdata.h"
#include "dependantinfo.h"
#include "stringlineedit.h"
#include "styledcheckbox.h"
#include "styledcombobox.h"

#include "ui_ws58440_disabilityself_tab1.h"
#include "ui_ws58480_disabilitydeptransfer_tab1.h"
#include "ui_ws58600_tab1.h"
#include "ui_wsadoptionexpense_tab1.h"
#include "ui_wsageamount_tab1.h"
#include "ui_wscaregiveramt_dep.h"
#include "ui_wsinfirmdepamt_dep.h"
#include "ui_wsinfirmdepamt_spousedep.h"

namespace {

// A calculated line: shown on every redraw, never written back.
void bindShown(PpgWizardPage& page, DoubleLineEdit* box, CFloatField& field)
{
    page.m_shownFloatEdits[box->objectName()] = box;
    page.m_shownFloatFields[box] = &field;
}

// An amount the user types: stored when the box loses the focus or takes Return.
void bindAmount(PpgWizardPage& page, DoubleLineEdit* box, CFloatField& field)
{
    page.m_floatEdits[box->objectName()] = box;
    page.m_floatFields[box] = &field;
    QObject::connect(box, SIGNAL(editingFinished()), &page, SLOT(onFloatEditFinished()));
}

void bindCheck(PpgWizardPage& page, QCheckBox* box, CField& field)
{
    page.m_checkEdits[box->objectName()] = box;
    page.m_checkFields[box] = &field;
    QObject::connect(box, SIGNAL(stateChanged(int)), &page, SLOT(onBoolChanged(int)));
    // Tab must reach it, or the keyboard could never change the claim.
    box->setFocusPolicy(Qt::StrongFocus);
}

// The list comes first: the box has to hold the dependant before DepIdx can select it.
void bindDependant(PpgWizardPage& page, StyledComboBox* box, CWSDepBaseData& data)
{
    if (data.m_pDepInfo)
        data.m_pDepInfo->FillComboBox(box, nullptr);
    page.m_comboEdits[box->objectName()] = box;
    page.m_comboFields[box] = &data.DepIdx;
    QObject::connect(box, SIGNAL(currentIndexChanged(int)), &page, SLOT(onCmbCurIndexChanged(int)));
    box->setFocusPolicy(Qt::StrongFocus);
}

// The four lines the dependant worksheets share: base amount, the dependant's
// net income, their difference, and what was claimed elsewhere.
template<typename Ui, typename Data>
void bindDependantLines(PpgWizardPage& page, Ui* ui, Data& data)
{
    bindShown(page, ui->fld_BaseAmount, data.BaseAmount);
    bindShown(page, ui->fld_DepNetInc, data.DepNetInc);
    bindShown(page, ui->fld_3, data.fld_3);
    bindShown(page, ui->fld_4, data.fld_4);
}

} // namespace

WS58440_DisabilitySelf_tab1::WS58440_DisabilitySelf_tab1(CWSDisabilityAmtData* data,
                                                         CTaxData_Form* form, QWidget* parent)
    : PpgWizardPage(data, form, parent)
    , m_ui(new Ui::WS58440_DisabilitySelf_tab1)
{
    m_ui->setupUi(this);
}

WS58440_DisabilitySelf_tab1::~WS58440_DisabilitySelf_tab1()
{
    delete m_ui;
}

void WS58440_DisabilitySelf_tab1::AssociateFormData()
{
    auto* data = dynamic_cast<CWSDisabilityAmtData*>(m_data);
    if (!data)
        return;
    bindShown(*this, m_ui->fld_ws5844_1, data->fld_ws5844_1);
    // Line 4 is worked out in the inner column and carried to the outer one.
    bindShown(*this, m_ui->fld_ws5844_4, data->fld_ws5844_4);
    bindShown(*this, m_ui->fld_ws5844_4_1, data->fld_ws5844_4);
    bindShown(*this, m_ui->fld_ws5844_5, data->fld_ws5844_5);
    bindCheck(*this, m_ui->fld_ws5844_claim, data->fld_ws5844_claim);
    bindAmount(*this, m_ui->fld_ws5844_2, data->fld_ws5844_2);
    bindAmount(*this, m_ui->fld_ws5844_3, data->fld_ws5844_3);
}

bool WS58440_DisabilitySelf_tab1::validatePage()
{
    return true;
}

WS58480_DisabilityDepTransfer_tab1::WS58480_DisabilityDepTransfer_tab1(
    CWSDisabilityTransferAmtData* data, CTaxData_Form* form, QWidget* parent)
    : PpgWizardPage(data, form, parent)
    , m_ui(new Ui::WS58480_DisabilityDepTransfer_tab1)
{
    m_ui->setupUi(this);
}

WS58480_DisabilityDepTransfer_tab1::~WS58480_DisabilityDepTransfer_tab1()
{
    delete m_ui;
}

void WS58480_DisabilityDepTransfer_tab1::AssociateFormData()
{
    auto* data = dynamic_cast<CWSDisabilityTransferAmtData*>(m_data);
    if (!data)
        return;
    // Line 5 is worked out in the inner column and carried to the outer one.
    bindShown(*this, m_ui->fld_Line5CareExpAfter, data->fld_Line5CareExpAfter);
    bindShown(*this, m_ui->fld_Line5CareExpAfter_1, data->fld_Line5CareExpAfter);
    bindDependant(*this, m_ui->DepIdx, *data);
    bindCheck(*this, m_ui->fld_overwrite, data->fld_overwrite);
    bindAmount(*this, m_ui->fld_BaseAmount, data->fld_BaseAmount);
    bindAmount(*this, m_ui->fld_Line2Max, data->fld_Line2Max);
    bindAmount(*this, m_ui->fld_Line3ChldCareExp, data->fld_Line3ChldCareExp);
    bindAmount(*this, m_ui->fld_Line4ExpBase, data->fld_Line4ExpBase);
    bindAmount(*this, m_ui->fld_Line6AmtUnder18, data->fld_Line6AmtUnder18);
    bindAmount(*this, m_ui->fld_2, data->fld_2);
    bindAmount(*this, m_ui->fld_Line8, data->fld_Line8);
    bindAmount(*this, m_ui->fld_4, data->fld_4);
    bindAmount(*this, m_ui->fld_5, data->fld_5);
    bindAmount(*this, m_ui->DepTaxInc, data->DepTaxInc);
    bindAmount(*this, m_ui->fld_7, data->fld_7);
    bindAmount(*this, m_ui->fld_claim, data->fld_claim);
    // Amt09FromFedProvTax stays unbound: line 9 is typed into fld_4.
}

bool WS58480_DisabilityDepTransfer_tab1::validatePage()
{
    return true;
}

WS58600_tab1::WS58600_tab1(DataWS58600* data, CTaxData_Form* form, BaseTaxPage* parent)
    : BaseWorksheetPage(data, form, parent)
    , m_ui(new Ui::WS58600_tab1)
{
    m_ui->setupUi(this);
}

WS58600_tab1::~WS58600_tab1()
{
    delete m_ui;
}

void WS58600_tab1::AssociateFormData()
{
    auto* data = dynamic_cast<DataWS58600*>(m_data);
    if (!data)
        return;
    bindShown(*this, m_ui->fld_claim, data->fld_claim);
    bindAmount(*this, m_ui->fld_5860, data->fld_5860);
}

bool WS58600_tab1::validatePage()
{
    return true;
}

WSAdoptionExpense_tab1::WSAdoptionExpense_tab1(DataWSAdoptionExpense* data, CTaxData_Form* form,
                                               BaseTaxPage* parent)
    : BaseWorksheetPage(data, form, parent)
    , m_ui(new Ui::WSAdoptionExpense_tab1)
{
    m_ui->setupUi(this);
}

WSAdoptionExpense_tab1::~WSAdoptionExpense_tab1()
{
    delete m_ui;
}

void WSAdoptionExpense_tab1::AssociateFormData()
{
    auto* data = dynamic_cast<DataWSAdoptionExpense*>(m_data);
    if (!data)
        return;
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_1, data->fld_Adopt_ExpAmt_1);
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_2, data->fld_Adopt_ExpAmt_2);
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_3, data->fld_Adopt_ExpAmt_3);
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_4, data->fld_Adopt_ExpAmt_4);
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_5, data->fld_Adopt_ExpAmt_5);
    bindAmount(*this, m_ui->fld_Adopt_ExpAmt_6, data->fld_Adopt_ExpAmt_6);
}

bool WSAdoptionExpense_tab1::validatePage()
{
    return true;
}

WSAgeAmount_tab1::WSAgeAmount_tab1(CWSAgeAmtData* data, CTaxData_Form* form, QWidget* parent)
    : PpgWizardPage(data, form, parent)
    , m_ui(new Ui::WSAgeAmount_tab1)
{
    m_ui->setupUi(this);
}

WSAgeAmount_tab1::~WSAgeAmount_tab1()
{
    delete m_ui;
}

void WSAgeAmount_tab1::AssociateFormData()
{
    auto* data = dynamic_cast<CWSAgeAmtData*>(m_data);
    if (!data)
        return;
    // Every line is calculated, so nothing is connected.
    bindShown(*this, m_ui->fld_ws5808_1, data->AgeLine1);
    bindShown(*this, m_ui->fld_ws5808_2, data->AgeLine2);
    bindShown(*this, m_ui->fld_ws5808_3, data->AgeLine3);
    bindShown(*this, m_ui->fld_ws5808_4, data->AgeLine4);
    bindShown(*this, m_ui->fld_ws5808_5, data->AgeLine5);
    bindShown(*this, m_ui->fld_ws5808_6, data->AgeLine6);
    bindShown(*this, m_ui->fld_ws5808_7, data->AgeLine7);
}

bool WSAgeAmount_tab1::validatePage()
{
    return true;
}

WSCaregiverAmt_Dep::WSCaregiverAmt_Dep(CWSCaregiverAmtData* data, CTaxData_Form* form,
                                       QWidget* parent)
    : PpgWizardPage(data, form, parent)
    , m_ui(new Ui::WSCaregiverAmt_Dep)
{
    m_ui->setupUi(this);
}

WSCaregiverAmt_Dep::~WSCaregiverAmt_Dep()
{
    delete m_ui;
}

void WSCaregiverAmt_Dep::AssociateFormData()
{
    auto* data = dynamic_cast<CWSCaregiverAmtData*>(m_data);
    if (!data)
        return;
    bindDependantLines(*this, m_ui, *data);
    bindDependant(*this, m_ui->DepIdx, *data);
    bindCheck(*this, m_ui->fld_bOverwrite, data->bOverwrite);
    bindAmount(*this, m_ui->fld_AmountClaim, data->AmountClaim);
}

bool WSCaregiverAmt_Dep::validatePage()
{
    return true;
}

WSInfirmDepAmt_Dep::WSInfirmDepAmt_Dep(CWSInfirmDepAmtData* data, CTaxData_Form* form,
                                       BaseTaxPage* parent)
    : BaseWorksheetPage(data, form, parent)
    , m_ui(new Ui::WSInfirmDepAmt_Dep)
    , m_canSelDep(true)
{
    m_ui->setupUi(this);
}

WSInfirmDepAmt_Dep::~WSInfirmDepAmt_Dep()
{
    delete m_ui;
}

void WSInfirmDepAmt_Dep::AssociateFormData()
{
    auto* data = dynamic_cast<CWSInfirmDepAmtData*>(m_data);
    if (!data)
        return;
    bindDependantLines(*this, m_ui, *data);
    bindShown(*this, m_ui->fld_AmountClaim, data->AmountClaim);
    bindDependant(*this, m_ui->DepIdx, *data);
}

bool WSInfirmDepAmt_Dep::validatePage()
{
    return true;
}

void WSInfirmDepAmt_Dep::setCanSelDep(bool canSelect)
{
    m_canSelDep = canSelect;
}

WSInfirmDepAmt_SpouseDep::WSInfirmDepAmt_SpouseDep(CWSInfirmDepAmtData* data, CTaxData_Form* form,
                                                   QWidget* parent)
    : PpgWizardPage(data, form, parent)
    , m_ui(new Ui::WSInfirmDepAmt_SpouseDep)
{
    m_ui->setupUi(this);
}

WSInfirmDepAmt_SpouseDep::~WSInfirmDepAmt_SpouseDep()
{
    delete m_ui;
}

void WSInfirmDepAmt_SpouseDep::AssociateFormData()
{
    auto* data = dynamic_cast<CWSInfirmDepAmtData*>(m_data);
    if (!data)
        return;
    bindDependantLines(*this, m_ui, *data);
    bindShown(*this, m_ui->fld_AmountClaim, data->AmountClaim);
}

bool WSInfirmDepAmt_SpouseDep::validatePage()
{
    return true;
}
