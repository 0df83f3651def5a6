// BaseTaxPage: one page of one tax form, bound to the form's fields.
#pragma once

#include "libbedrock_export.h"
#include "pagebindings.h"

#include <QString>
#include <QWidget>

#include <list>
#include <map>
#include <string>

class ActionOnEvent;
class CField;
class CT1ComboBox;
class CTaxData_Form;
class PpgWizardPage;
class StringLineEdit;

/*
 * A derived page builds its widgets as direct children (a worksheet door posts
 * its request to its direct parent), gives each a unique object name, and in
 * AssociateFormData fills the binding tables and connects each widget's change
 * signal to the fitting slot, e.g. editingFinished() to onFloatEditFinished().
 * syncData() shows the page; after each change the handler stores the widget's
 * value straight into its field and emits signalCalc(form, field), whose
 * receiver recalculates the form and redraws the page by syncData().
 *
 * A box made a door by setAttID(id) opens worksheet `id`: if m_forwardMap holds
 * the id, the page posts EventForwardEdit(form) to m_parent, which shows that
 * form; otherwise ShowWorksheetEditDlg(id, 0) opens the page(s) that
 * getWorksheetEditDlg gives. Return, released in a box, moves the focus on.
 * The page owns neither the form nor the fields.
 */
class LIBBEDROCK_EXPORT BaseTaxPage : public QWidget, public PageBindingTables<CT1ComboBox>
{
    Q_OBJECT

public:
    BaseTaxPage(int pageNumber, CTaxData_Form* form, QWidget* parent);
    BaseTaxPage(char const* title, CTaxData_Form* form, QWidget* parent);
    ~BaseTaxPage() override;

    // The title without outer blanks, or "Page N" when it has none.
    QString getTitle();
    // The first call binds the page and shows it; later calls only show it again.
    void syncData();

    // Field to widget, for every pair but the multi-line texts; writes nothing back.
    virtual void GetDataFromDoc();
    // Every writable widget to its field, texts trimmed; does not recalculate.
    virtual void PutDataToDoc();
    virtual int AutoDataCorrection();
    virtual QString getTooltip(int attId);
    virtual bool CheckData(CField* field, StringLineEdit* edit, std::string text);
    // Emits signalCalc(m_form, field); a null field means the whole form.
    virtual bool CalcFormData(CField* field);
    virtual void AssociateFormData();
    virtual void ShowWorksheetEditDlg(int id, long key);
    // 1 and the title for the worksheets the library knows; 0, title untouched, otherwise.
    virtual int getWSDefaultTitle(int id, QString& title);
    // A one-page worksheet for `id`, or null.
    virtual PpgWizardPage* getWorksheetEditDlg(int id, long key, QString& title);
    // One page per dependant into `pages`; their count.
    virtual int getWorksheetEditDlg(int id, long key, QString& title,
                                    std::list<PpgWizardPage*>& pages);

    StringLineEdit* m_lastFocused;
    CTaxData_Form* m_form;
    int m_pageNumber;
    QString m_title;
    QWidget* m_parent;
    std::map<int, int> m_forwardMap; // attribute id -> form number
    ActionOnEvent* m_lineEditFilter;
    ActionOnEvent* m_dateEditFilter;
    ActionOnEvent* m_doubleEditFilter;
    bool m_syncing;
    bool m_associated;

Q_SIGNALS:
    void signalCalc(CTaxData_Form* form, CField* field);
    void signalFwrdForm(int form, int kind);
    void signalDeleteSlip();

public Q_SLOTS:
    void onStringEditFinished();
    void onMultiLineEditFinished();
    void onFloatEditFinished();
    void onBoolChanged(int state);
    void onRadioIdClicked(int id);
    void onDateChanged(const QDate& date);
    void onDateTimeChanged(const QDateTime& dateTime);
    void onCmbCurIndexChanged(int index);
    virtual void onFocussed(bool focusIn, StringLineEdit* edit);

protected:
    bool event(QEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void init();
    bool isReturnRelease(QEvent* e) const;
};
