// BaseWorksheetPage: a worksheet page whose numbers come from the form behind it.
#pragma once

#include "ppgwizardpage.h"

class BaseTaxPage;

/*
 * Instead of calculating its own data, the page asks the form page behind it
 * to recalculate (CalcFormData(nullptr), so signalCalc reaches the application)
 * and then redraws the worksheet's data.
 */
class LIBBEDROCK_EXPORT BaseWorksheetPage : public PpgWizardPage
{
    Q_OBJECT

public:
    // `parent` is both the widget parent and the form page that recalculates.
    BaseWorksheetPage(CWSBaseData* data, CTaxData_Form* form, BaseTaxPage* parent);

    void GetDataFromDoc() override;

    BaseTaxPage* m_parentPage;
    ActionOnEvent* m_parentDoubleFilter;
};
