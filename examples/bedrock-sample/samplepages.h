// The pages of the sample's forms: each box bound to its field, the worksheet
// doors, and the box that shows a value of another form.
#pragma once

#include "samplereturn.h"

#include <LibBedrock.h>

#include <QButtonGroup>
#include <QGridLayout>
#include <QPlainTextEdit>

// The sample's own captions, in English or French; the library translates its own.
void setSampleFrench(bool french);
bool sampleFrench();
QString say(const char* en, const char* fr);

/*
 * A page laid out as a form: caption, line code, box, one line each. The boxes
 * are direct children of the page (a door posts its request to its parent) and
 * each is named after its field, which the page's handlers look up by.
 */
class SamplePage : public BaseTaxPage
{
    Q_OBJECT

public:
    // `window` receives the requests to show another form.
    SamplePage(const QString& title, const QString& slug, CTaxData_Form* form, QWidget* window);

    // A short name for the page's picture.
    QString slug() const { return m_slug; }

protected:
    void addHeading(const QString& text);
    void addNote(const QString& text);
    // One line of the form; `code` is the line code shown beside the box, or null.
    template<typename W> W* addLine(const char* name, const QString& caption, const char* code)
    {
        auto* box = new W(this);
        box->setObjectName(QString::fromLatin1(name));
        placeLine(box, caption, code);
        return box;
    }
    void placeLine(QWidget* box, const QString& caption, const char* code);
    // A door: read-only, opens worksheet `id` (or the form m_forwardMap names) when touched.
    void makeDoor(DoubleLineEdit* box, int id);
    void finish();

    // One entry in the page's tables per box, and the box's change signal to its handler.
    void bindAmount(DoubleLineEdit* box, CFloatField& field);
    void bindShown(DoubleLineEdit* box, CFloatField& field);
    void bindText(QLineEdit* box, CStringField& field);
    void bindShownText(QLineEdit* box, CStringField& field);
    void bindNotes(QPlainTextEdit* box, CStringField& field);
    void bindCheck(QCheckBox* box, CField& field);
    void bindRadio(QButtonGroup* group, CField& field);
    void bindCombo(CT1ComboBox* box, CField& field);
    void bindDate(StyledDateEdit* box, CDateField& field);

    QGridLayout* m_grid;
    QString m_slug;
};

class IdentificationPage : public SamplePage
{
    Q_OBJECT

public:
    IdentificationPage(SampleForm* form, QWidget* window);
    void AssociateFormData() override;

private:
    SampleForm* m_t1;
    StringLineEdit *m_name, *m_sin, *m_employer;
    StyledDateEdit *m_birth, *m_entry;
    CT1ComboBox* m_province;
    QButtonGroup* m_marital;
    StyledCheckBox* m_resident;
    QPlainTextEdit* m_notes;
};

class IncomePage : public SamplePage
{
    Q_OBJECT

public:
    IncomePage(SampleForm* form, QWidget* window);
    void AssociateFormData() override;

private:
    SampleForm* m_t1;
    DoubleLineEdit *m_employment, *m_other, *m_total, *m_percent;
    CForwardEdit* m_interest;
};

class CreditsPage : public SamplePage
{
    Q_OBJECT

public:
    CreditsPage(SampleReturn* data, QWidget* window);
    void AssociateFormData() override;
    PpgWizardPage* getWorksheetEditDlg(int id, long key, QString& title) override;
    int getWorksheetEditDlg(int id, long key, QString& title,
                            std::list<PpgWizardPage*>& pages) override;

private:
    SampleReturn* m_return;
    StringLineEdit* m_name;
    DoubleLineEdit *m_age, *m_caregiver, *m_total;
};

class Schedule4Page : public SamplePage
{
    Q_OBJECT

public:
    Schedule4Page(SampleSchedule4* form, QWidget* window);
    void AssociateFormData() override;

private:
    SampleSchedule4* m_s4;
    StringLineEdit *m_payer1, *m_payer2;
    DoubleLineEdit *m_interest1, *m_interest2, *m_total;
};
