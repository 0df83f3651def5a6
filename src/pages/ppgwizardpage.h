// Worksheet pages and the dialogs that show them: a worksheet is a small form
// that opens over a tax form page and recalculates itself after each change.
#pragma once

#include "libbedrock_export.h"
#include "pagebindings.h"

#include <QWizard>
#include <QWizardPage>

class ActionOnEvent;
class CTaxData_Form;
class CWSBaseData;
class StyledComboBox;

/*
 * A worksheet's face, with the same binding tables as a form page. After each
 * change its handler stores the value straight into the worksheet data and calls
 * GetDataFromDoc(), which runs the data's Calculate() once and redraws every box
 * of the page, so the user sees the lines follow at once. A derived page fills
 * the tables in AssociateFormData(), which the dialog calls when it opens.
 * Date-time boxes have no handler here: PutDataToDoc() alone writes them.
 */
class LIBBEDROCK_EXPORT PpgWizardPage : public QWizardPage, public PageBindingTables<StyledComboBox>
{
    Q_OBJECT

public:
    // `form` is not kept: a derived page that needs it keeps it itself.
    PpgWizardPage(CWSBaseData* data, CTaxData_Form* form, QWidget* parent);
    ~PpgWizardPage() override;

    // Writes the page into the data (PutDataToDoc) and lets the dialog close.
    bool validatePage() override;
    virtual void AssociateFormData();
    // Calculates (when there is data) and redraws the whole page.
    virtual void GetDataFromDoc();
    // Every writable widget to its field, texts trimmed; does not calculate.
    virtual void PutDataToDoc();

    int m_extraWidth; // added to the dialog's default size
    int m_extraHeight;
    QString m_tabTitle; // the tab's text in a multi-dependant dialog
    CWSBaseData* m_data;
    void* m_reserved;
    bool m_syncing;
    ActionOnEvent* m_doubleEditFilter;

public Q_SLOTS:
    void onStringEditFinished();
    void onMultiLineEditFinished();
    void onFloatEditFinished();
    void onBoolChanged(int state);
    void onRadioIdClicked(int id);
    void onDateChanged(const QDate& date);
    void onCmbCurIndexChanged(int index);

protected:
    // The redraw of GetDataFromDoc, with the filter its amount boxes get.
    void redraw(ActionOnEvent* floatFilter);
};

// The dialog of a one-page worksheet.
class LIBBEDROCK_EXPORT WizardBase : public QWizard
{
    Q_OBJECT

public:
    WizardBase(QWidget* parent, QString const& title);

    // Resizes, then binds and shows each worksheet page: bindings are made when
    // the dialog opens, not when the page is built.
    void initUI(int width, int height);
};

// Kept for the applications; nothing derives from it in the library.
class LIBBEDROCK_EXPORT PpgBaseData
{
public:
    virtual ~PpgBaseData();
    virtual int GetDataFromDoc();
    virtual int PutDataToDoc();
};
