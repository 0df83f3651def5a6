#include "basetaxpage.h"

#include "catalogue.h"
#include "ctaxdata_form.h"
#include "logging_p.h"
#include "myevent.h"
#include "pagebindings_p.h"
#include "ppgwizardpage.h"
#include "styledcheckbox.h"
#include "wsmultidepdlg.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

BaseTaxPage::BaseTaxPage(int pageNumber, CTaxData_Form* form, QWidget* parent)
    : QWidget(parent)
    , m_form(form)
    , m_pageNumber(pageNumber)
    , m_parent(parent)
{
    init();
}

BaseTaxPage::BaseTaxPage(char const* title, CTaxData_Form* form, QWidget* parent)
    : QWidget(parent)
    , m_form(form)
    , m_pageNumber(0)
    , m_title(QString::fromUtf8(title ? title : ""))
    , m_parent(parent)
{
    init();
}

BaseTaxPage::~BaseTaxPage() = default;

void BaseTaxPage::init()
{
    m_lastFocused = nullptr;
    m_lineEditFilter = new ActionOnEvent(1, this);
    m_dateEditFilter = new ActionOnEvent(4, this);
    m_doubleEditFilter = new ActionOnEvent(5, this);
    m_syncing = false;
    m_associated = false;
}

QString BaseTaxPage::getTitle()
{
    const QString title = m_title.trimmed();
    return title.isEmpty() ? tr("Page %1").arg(m_pageNumber) : title;
}

void BaseTaxPage::syncData()
{
    if (m_associated) {
        GetDataFromDoc();
        return;
    }
    AssociateFormData();
    m_associated = true;

    using Bedrock::each;
    each(m_stringFields, [this](auto w, auto) { m_lineEditFilter->installOn(w); });
    each(m_dateFields, [this](auto w, auto) { m_dateEditFilter->installOn(w); });
    each(m_floatFields, [this](auto w, auto) { m_doubleEditFilter->installOn(w); });
    each(m_checkFields, [](auto w, auto) {
        // A box without a label, or with a long one, is easy to miss unticked.
        auto* check = qobject_cast<StyledCheckBox*>(w);
        if (check && (check->text().isEmpty() || check->text().size() >= 11))
            check->makeBold();
    });
    // The widgets may keep Return's release to themselves; the page must see it.
    const auto watch = [this](auto w, auto) { w->installEventFilter(this); };
    each(m_floatFields, watch);
    each(m_checkFields, watch);
    each(m_radioFields, [this](auto w, auto) {
        for (QAbstractButton* b : w->buttons())
            b->installEventFilter(this);
    });
    each(m_comboFields, watch);
    each(m_dateFields, watch);
    each(m_dateTimeFields, watch);
    each(m_stringFields, watch);

    // Loaded once: a later redraw must not throw away what is being typed.
    m_syncing = true;
    each(m_multiLineFields, [](auto w, auto f) {
        w->setUndoRedoEnabled(false);
        w->setUpdatesEnabled(false);
        w->setPlainText(f->m_text);
        w->setUpdatesEnabled(true);
    });
    m_syncing = false;

    GetDataFromDoc();
}

void BaseTaxPage::GetDataFromDoc()
{
    m_syncing = true;
    Bedrock::redrawAll(*this, { nullptr, true, false });
    m_syncing = false;
}

void BaseTaxPage::PutDataToDoc()
{
    Bedrock::putAll(*this);
}

int BaseTaxPage::AutoDataCorrection()
{
    return 0;
}

QString BaseTaxPage::getTooltip(int attId)
{
    const auto it = m_forwardMap.find(attId);
    if (it != m_forwardMap.end()) {
        const int form = it->second;
        const char* name = form >= 0 && form < ENUM_FORM_COUNT && Global_Forms_Info[form].shortName
            ? Global_Forms_Info[form].shortName
            : "";
        return QStringLiteral("Calculated from tax form [%1]").arg(QString::fromLatin1(name));
    }
    return QStringLiteral("Press key or mouse to open worksheet");
}

bool BaseTaxPage::CheckData(CField*, StringLineEdit*, std::string)
{
    return false;
}

bool BaseTaxPage::CalcFormData(CField* field)
{
    Q_EMIT signalCalc(m_form, field);
    return true;
}

void BaseTaxPage::AssociateFormData()
{ }

void BaseTaxPage::ShowWorksheetEditDlg(int id, long key)
{
    QString title;
    getWSDefaultTitle(id, title);
    if (PpgWizardPage* page = getWorksheetEditDlg(id, key, title)) {
        WizardBase wizard(this, title);
        wizard.setWizardStyle(QWizard::ClassicStyle);
        wizard.addPage(page);
        wizard.setOptions(QWizard::NoBackButtonOnStartPage | QWizard::NoCancelButton);
        wizard.initUI(770 + page->m_extraWidth, 640 + page->m_extraHeight);
        wizard.exec();
        // The page wrote its data as it went, accepted or not.
        CalcFormData(nullptr);
        return;
    }
    std::list<PpgWizardPage*> pages;
    if (getWorksheetEditDlg(id, key, title, pages) > 0) {
        WSMultiDepDlg dialog(title, pages, this);
        const PpgWizardPage* first = pages.empty() ? nullptr : pages.front();
        const int extraWidth = first ? first->m_extraWidth : 0;
        const int extraHeight = first ? first->m_extraHeight : 0;
        qCDebug(lcBedrockPages).nospace() << "dlg extra: " << extraWidth << ":" << extraHeight;
        dialog.initUI(770 + extraWidth, 640 + extraHeight);
        dialog.exec();
        CalcFormData(nullptr);
    }
}

int BaseTaxPage::getWSDefaultTitle(int id, QString& title)
{
    switch (id) {
    case 30100:
        title = tr("Federal Age Amount Worksheet (30100)");
        return 1;
    case 31400:
        title = tr("Federal Pension Amount Worksheet (31400)");
        return 1;
    case 31800:
        title = QStringLiteral("Federal Dependant Disability Transfer Amount (31800)");
        return 1;
    case 58080:
        title = tr("Provincial Age Amount Worksheet (58080)");
        return 1;
    case 58200:
        title = tr("Provincial Amount for Infirm Dependant Aged 18+ (58200)");
        return 1;
    case 58330:
        title = tr("Prvocincial Adoption Amount Worksheet (58330)");
        return 1;
    case 58400:
        title = tr("Caregiver Amount (58400)");
        return 1;
    case 58440:
        title = tr("Disability Amount for Self (58440)");
        return 1;
    case 58480:
        title = QStringLiteral("Provincial Dependant Disability Transfer Amount (58480)");
        return 1;
    default:
        return 0;
    }
}

PpgWizardPage* BaseTaxPage::getWorksheetEditDlg(int, long, QString&)
{
    return nullptr;
}

int BaseTaxPage::getWorksheetEditDlg(int, long, QString&, std::list<PpgWizardPage*>&)
{
    return 0;
}

void BaseTaxPage::onStringEditFinished()
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeString(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onMultiLineEditFinished()
{
    // Stored without a recalculation: no form line depends on free text.
    if (!m_syncing)
        Bedrock::storeMultiLine(*this, sender());
}

void BaseTaxPage::onFloatEditFinished()
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeFloat(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onBoolChanged(int)
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeCheck(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onRadioIdClicked(int)
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeRadio(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onDateChanged(const QDate&)
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeDate(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onDateTimeChanged(const QDateTime&)
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeDateTime(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onCmbCurIndexChanged(int)
{
    if (m_syncing)
        return;
    if (CField* field = Bedrock::storeCombo(*this, sender()))
        CalcFormData(field);
}

void BaseTaxPage::onFocussed(bool focusIn, StringLineEdit* edit)
{
    if (!edit || !focusIn)
        return;
    if (edit == m_lastFocused) {
        m_lastFocused = nullptr;
        return;
    }
    m_lastFocused = edit;
    // The text is the literal past the type number, as derived pages expect of
    // the base; they override this for their own navigation.
    if (edit->m_forwardKind == 2) {
        QMessageBox::information(this, QStringLiteral("worksheet"),
                                 QStringLiteral("to field").mid(qMax(0, edit->m_forwardType)),
                                 QMessageBox::Ok);
    } else if (edit->m_forwardKind == 1) {
        QMessageBox::information(this, QStringLiteral("Forward form"),
                                 QStringLiteral("to type").mid(qMax(0, edit->m_forwardType)),
                                 QMessageBox::Ok);
    }
}

bool BaseTaxPage::isReturnRelease(QEvent* e) const
{
    if (e->type() != QEvent::KeyRelease)
        return false;
    auto* key = static_cast<QKeyEvent*>(e);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return false;
    // In a multi-line box Return starts a new line; it does not leave the box.
    return !qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
}

bool BaseTaxPage::event(QEvent* e)
{
    if (isReturnRelease(e)) {
        focusNextPrevChild(true);
        return true;
    }
    if (e->type() == QEvent::Type(EventNeedWorksheet::Type)) {
        if (auto* need = dynamic_cast<EventNeedWorksheet*>(e)) {
            const auto forward = m_forwardMap.find(need->m_value);
            if (forward != m_forwardMap.end()) {
                if (m_parent)
                    QCoreApplication::postEvent(m_parent, new EventForwardEdit(forward->second));
            } else {
                ShowWorksheetEditDlg(need->m_value, 0);
            }
            return true;
        }
    }
    return QWidget::event(e);
}

bool BaseTaxPage::eventFilter(QObject* watched, QEvent* e)
{
    if (isReturnRelease(e)) {
        focusNextPrevChild(true);
        return true;
    }
    return QWidget::eventFilter(watched, e);
}
