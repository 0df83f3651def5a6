#include "ppgwizardpage.h"

#include "basetaxpage.h"
#include "baseworksheetpage.h"
#include "cwsbasedata.h"
#include "pagebindings_p.h"

PpgWizardPage::PpgWizardPage(CWSBaseData* data, CTaxData_Form*, QWidget* parent)
    : QWizardPage(parent)
    , m_extraWidth(0)
    , m_extraHeight(0)
    , m_data(data)
    , m_reserved(nullptr)
    , m_syncing(false)
    , m_doubleEditFilter(new ActionOnEvent(5, this))
{ }

PpgWizardPage::~PpgWizardPage() = default;

bool PpgWizardPage::validatePage()
{
    PutDataToDoc();
    return true;
}

void PpgWizardPage::AssociateFormData()
{ }

void PpgWizardPage::GetDataFromDoc()
{
    m_syncing = true;
    if (m_data)
        m_data->Calculate();
    redraw(m_doubleEditFilter);
    m_syncing = false;
}

void PpgWizardPage::redraw(ActionOnEvent* floatFilter)
{
    // Unlike a form page, a value without a radio button keeps the old choice,
    // and multi-line boxes are set again on every pass.
    Bedrock::redrawAll(*this, { floatFilter, false, true });
}

void PpgWizardPage::PutDataToDoc()
{
    Bedrock::putAll(*this);
}

void PpgWizardPage::onStringEditFinished()
{
    if (!m_syncing && Bedrock::storeString(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onMultiLineEditFinished()
{
    if (!m_syncing && Bedrock::storeMultiLine(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onFloatEditFinished()
{
    if (!m_syncing && Bedrock::storeFloat(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onBoolChanged(int)
{
    if (!m_syncing && Bedrock::storeCheck(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onRadioIdClicked(int)
{
    if (!m_syncing && Bedrock::storeRadio(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onDateChanged(const QDate&)
{
    if (!m_syncing && Bedrock::storeDate(*this, sender()))
        GetDataFromDoc();
}

void PpgWizardPage::onCmbCurIndexChanged(int)
{
    if (!m_syncing && Bedrock::storeCombo(*this, sender()))
        GetDataFromDoc();
}

WizardBase::WizardBase(QWidget* parent, QString const& title)
    : QWizard(parent)
{
    setWindowTitle(title);
}

void WizardBase::initUI(int width, int height)
{
    resize(width, height);
    for (int id : pageIds()) {
        if (auto* page = qobject_cast<PpgWizardPage*>(this->page(id))) {
            page->AssociateFormData();
            page->GetDataFromDoc();
        }
    }
}

PpgBaseData::~PpgBaseData() = default;

int PpgBaseData::GetDataFromDoc()
{
    return 0;
}

int PpgBaseData::PutDataToDoc()
{
    return 0;
}

BaseWorksheetPage::BaseWorksheetPage(CWSBaseData* data, CTaxData_Form* form, BaseTaxPage* parent)
    : PpgWizardPage(data, form, parent)
    , m_parentPage(parent)
    , m_parentDoubleFilter(new ActionOnEvent(5, this))
{ }

void BaseWorksheetPage::GetDataFromDoc()
{
    m_syncing = true;
    if (m_parentPage)
        m_parentPage->CalcFormData(nullptr);
    redraw(m_parentDoubleFilter);
    m_syncing = false;
}
