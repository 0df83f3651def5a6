// The standard worksheet pages: one Designer form each, its boxes bound to the
// fields of one worksheet data object.
#pragma once

#include "baseworksheetpage.h"
#include "libbedrock_export.h"
#include "ppgwizardpage.h"

class BaseTaxPage;
class CTaxData_Form;
class CWSAgeAmtData;
class CWSCaregiverAmtData;
class CWSDisabilityAmtData;
class CWSDisabilityTransferAmtData;
class CWSInfirmDepAmtData;
class DataWS58600;
class DataWSAdoptionExpense;

namespace Ui {
class WS58440_DisabilitySelf_tab1;
class WS58480_DisabilityDepTransfer_tab1;
class WS58600_tab1;
class WSAdoptionExpense_tab1;
class WSAgeAmount_tab1;
class WSCaregiverAmt_Dep;
class WSInfirmDepAmt_Dep;
class WSInfirmDepAmt_SpouseDep;
}

/*
 * The pages hold no tax logic: every number comes from the data's Calculate()
 * or, on a BaseWorksheetPage, from the form page behind it. Each page builds
 * its form in the constructor and binds it in AssociateFormData(), which the
 * dialog calls once when it opens. Boxes that show a calculated line are
 * read-only; the editable ones store their value as the user leaves them, so
 * validatePage() has nothing left to write and only lets the dialog close.
 * A page whose data is null binds nothing.
 */

// "Disability Amount for Self (58440)": the claim box and the supplement lines.
class LIBBEDROCK_EXPORT WS58440_DisabilitySelf_tab1 : public PpgWizardPage
{
    Q_OBJECT

public:
    WS58440_DisabilitySelf_tab1(CWSDisabilityAmtData* data, CTaxData_Form* form, QWidget* parent);
    ~WS58440_DisabilitySelf_tab1() override;

    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WS58440_DisabilitySelf_tab1* m_ui;
};

// "Provincial Dependant Disability Transfer Amount (58480)" for the chosen dependant.
class LIBBEDROCK_EXPORT WS58480_DisabilityDepTransfer_tab1 : public PpgWizardPage
{
    Q_OBJECT

public:
    WS58480_DisabilityDepTransfer_tab1(CWSDisabilityTransferAmtData* data, CTaxData_Form* form,
                                       QWidget* parent);
    ~WS58480_DisabilityDepTransfer_tab1() override;

    // Fills "DepIdx" from the data's dependant list before binding it.
    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WS58480_DisabilityDepTransfer_tab1* m_ui;
};

// "Provincial Tuition Transfer Amounts": the form page pro-rates the total.
class LIBBEDROCK_EXPORT WS58600_tab1 : public BaseWorksheetPage
{
    Q_OBJECT

public:
    WS58600_tab1(DataWS58600* data, CTaxData_Form* form, BaseTaxPage* parent);
    ~WS58600_tab1() override;

    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WS58600_tab1* m_ui;
};

// "Details of adoption expenses": one amount per child, totalled by the form page.
class LIBBEDROCK_EXPORT WSAdoptionExpense_tab1 : public BaseWorksheetPage
{
    Q_OBJECT

public:
    WSAdoptionExpense_tab1(DataWSAdoptionExpense* data, CTaxData_Form* form, BaseTaxPage* parent);
    ~WSAdoptionExpense_tab1() override;

    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WSAdoptionExpense_tab1* m_ui;
};

// The age amount worksheet (lines 30100 and 58080): display only, every line calculated.
class LIBBEDROCK_EXPORT WSAgeAmount_tab1 : public PpgWizardPage
{
    Q_OBJECT

public:
    WSAgeAmount_tab1(CWSAgeAmtData* data, CTaxData_Form* form, QWidget* parent);
    ~WSAgeAmount_tab1() override;

    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WSAgeAmount_tab1* m_ui;
};

// "Caregiver Amount (58400)" for the chosen dependant; the claim may be overwritten.
class LIBBEDROCK_EXPORT WSCaregiverAmt_Dep : public PpgWizardPage
{
    Q_OBJECT

public:
    WSCaregiverAmt_Dep(CWSCaregiverAmtData* data, CTaxData_Form* form, QWidget* parent);
    ~WSCaregiverAmt_Dep() override;

    // Fills "DepIdx" from the data's dependant list before binding it.
    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WSCaregiverAmt_Dep* m_ui;
};

// "Provincial Amount for Infirm Dependant Aged 18+ (58200)" for the chosen dependant.
class LIBBEDROCK_EXPORT WSInfirmDepAmt_Dep : public BaseWorksheetPage
{
    Q_OBJECT

public:
    WSInfirmDepAmt_Dep(CWSInfirmDepAmtData* data, CTaxData_Form* form, BaseTaxPage* parent);
    ~WSInfirmDepAmt_Dep() override;

    // Fills "DepIdx" from the data's dependant list before binding it.
    void AssociateFormData() override;
    bool validatePage() override;
    // Kept for the applications; the library itself never reads it.
    void setCanSelDep(bool canSelect);

    Ui::WSInfirmDepAmt_Dep* m_ui;
    bool m_canSelDep;
};

// The infirm dependant amount for the spouse or eligible dependant of schedule 5:
// nobody to choose, nothing to edit.
class LIBBEDROCK_EXPORT WSInfirmDepAmt_SpouseDep : public PpgWizardPage
{
    Q_OBJECT

public:
    WSInfirmDepAmt_SpouseDep(CWSInfirmDepAmtData* data, CTaxData_Form* form, QWidget* parent);
    ~WSInfirmDepAmt_SpouseDep() override;

    void AssociateFormData() override;
    bool validatePage() override;

    Ui::WSInfirmDepAmt_SpouseDep* m_ui;
};
