// Gallery of the library's interface: the input widgets, each in the states a
// person meets on a form page, the worksheet pages over sample figures in the
// dialogs that open them, and the message dialogs, in English and in French. It writes one PNG per
// widget, one of the whole widget panel and one per worksheet and language into
// the folder it is given, so the pictures of the README can be made again:
//
//   bedrock-gallery DIR
//
// It draws on the offscreen platform unless QT_QPA_PLATFORM says otherwise.
#include <LibBedrock.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QTextStream>

#include <cstring>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct Shot {
    QString file;
    QWidget* widget;
};

class Panel : public QWidget
{
public:
    Panel()
    {
        setObjectName(QStringLiteral("panel"));
        setWindowTitle(QStringLiteral("LibBedrock widgets"));
        setAutoFillBackground(true);
        QPalette pal = palette();
        pal.setColor(QPalette::Window, Qt::white);
        setPalette(pal);
        m_grid = new QGridLayout(this);
        m_grid->setHorizontalSpacing(16);
        m_grid->setVerticalSpacing(8);
        m_grid->setColumnMinimumWidth(1, 220);
    }

    // The label reads as a form line; the widget stands beside it, as on a page.
    template<typename W> W* add(const QString& file, const QString& caption, W* widget)
    {
        auto* label = new UnderlineLabel(this);
        label->setText(caption);
        const int row = m_grid->rowCount();
        m_grid->addWidget(label, row, 0);
        m_grid->addWidget(widget, row, 1);
        m_shots.push_back({ file, widget });
        return widget;
    }

    const std::vector<Shot>& shots() const { return m_shots; }

private:
    QGridLayout* m_grid;
    std::vector<Shot> m_shots;
};

// Stands for the pointer resting on a box, so the hover colour shows in a still picture.
void hover(QWidget* w)
{
    w->setAttribute(Qt::WA_UnderMouse, true);
}

// Two dependants, as a household of the sample figures has them.
void fillHousehold(DependantInfoStruct& deps)
{
    deps.AllocData(2);
    const char* first[] = { "Anna", "Louis" };
    const char* last[] = { "Tremblay", "Gagnon" };
    const int years[] = { 2012, 1950 };
    const int relations[] = { 1, 2 };
    const double incomes[] = { 1234.5, 9876.54 };
    for (int i = 0; i < 2; ++i) {
        std::strcpy(deps.m_pData[i].m_FirstName, first[i]);
        std::strcpy(deps.m_pData[i].m_LastName, last[i]);
        deps.m_pData[i].m_BirthDate = QDate(years[i], 3, 4);
        deps.m_pData[i].m_Relation = relations[i];
        deps.m_pData[i].m_NetIncome = incomes[i];
    }
    deps.m_pData[1].fld_Infirm = 1;
}

// The worksheets over sample figures, each opened as a form page opens it: a
// one-page dialog, or the dependants' tabbed dialog. `suffix` names the language.
class WorksheetShots
{
public:
    WorksheetShots(const QDir& dir, const QString& suffix)
        : m_dir(dir)
        , m_suffix(suffix)
        , m_form(ENUMTYPE_FORM(2))
        , m_formPage(1, &m_form, nullptr)
    {
        fillHousehold(m_deps);
    }

    int run()
    {
        auto* self = keep(new CWSDisabilityAmtData);
        self->SetF5844Parameter(5758, 3373, true);
        self->fld_ws5844_claim = 1;
        self->fld_ws5844_2 = 4500;
        oneTab(QStringLiteral("ws-58440"), 58440,
               new WS58440_DisabilitySelf_tab1(self, &m_form, nullptr));

        auto* transfer = keep(new CWSDisabilityTransferAmtData);
        transfer->m_pDepInfo = &m_deps;
        transfer->DepIdx = 1;
        transfer->SetF5848Parameter(9428, 5758, 3373);
        transfer->fld_Line3ChldCareExp = 4200;
        transfer->fld_4 = 12000;
        transfer->DepTaxInc = 15000;
        oneTab(QStringLiteral("ws-58480"), 58480,
               new WS58480_DisabilityDepTransfer_tab1(transfer, &m_form, nullptr));

        auto* tuition = keep(new DataWS58600);
        tuition->fld_5860 = 5000;
        tuition->Calculate(1.0);
        oneTab(QStringLiteral("ws-58600"), 58600, new WS58600_tab1(tuition, &m_form, &m_formPage));

        auto* adoption = keep(new DataWSAdoptionExpense);
        adoption->fld_Adopt_ExpAmt_1 = 12000;
        adoption->fld_Adopt_ExpAmt_2 = 3456.78;
        oneTab(QStringLiteral("ws-adoption"), 58330,
               new WSAdoptionExpense_tab1(adoption, &m_form, &m_formPage));

        auto* age = keep(new CWSAgeAmtData);
        age->SetAgeParameter(9028, 45522, 0.15, 365, 365, true, 61234.56);
        oneTab(QStringLiteral("ws-age"), 30100, new WSAgeAmount_tab1(age, &m_form, nullptr));

        auto* spouse = keep(new CWSInfirmDepAmtData);
        spouse->m_pDepInfo = &m_deps;
        spouse->DepIdx = 2;
        spouse->SetParameterAndF5816Info(12000, 5615, 0, 0);
        oneTab(QStringLiteral("ws-infirm-spouse"), 58200,
               new WSInfirmDepAmt_SpouseDep(spouse, &m_form, nullptr));

        // One tab a dependant, each over its own data.
        std::list<PpgWizardPage*> carers;
        for (int dep = 1; dep <= 2; ++dep) {
            auto* carer = keep(new CWSCaregiverAmtData);
            carer->m_pDepInfo = &m_deps;
            carer->DepIdx = dep;
            carer->SetParameter(21000, 5615, 0, 0);
            carers.push_back(new WSCaregiverAmt_Dep(carer, &m_form, nullptr));
        }
        tabs(QStringLiteral("ws-caregiver"), 58400, carers);

        std::list<PpgWizardPage*> infirm;
        for (int dep = 1; dep <= 2; ++dep) {
            auto* data = keep(new CWSInfirmDepAmtData);
            data->m_pDepInfo = &m_deps;
            data->DepIdx = dep;
            data->SetParameterAndF5816Info(12000, 5615, 0, 0);
            data->Calculate();
            infirm.push_back(new WSInfirmDepAmt_Dep(data, &m_form, &m_formPage));
        }
        tabs(QStringLiteral("ws-infirm"), 58200, infirm);
        return m_failures;
    }

private:
    template<typename D> D* keep(D* data)
    {
        m_data.emplace_back(data);
        return data;
    }

    QString title(int id)
    {
        QString t;
        m_formPage.getWSDefaultTitle(id, t);
        return t;
    }

    // As the form page opens a one-page worksheet.
    void oneTab(const QString& name, int id, PpgWizardPage* page)
    {
        WizardBase wizard(nullptr, title(id));
        wizard.setWizardStyle(QWizard::ClassicStyle);
        wizard.addPage(page);
        wizard.setOptions(QWizard::NoBackButtonOnStartPage | QWizard::NoCancelButton);
        wizard.initUI(770 + page->m_extraWidth, 640 + page->m_extraHeight);
        save(&wizard, name);
    }

    void tabs(const QString& name, int id, std::list<PpgWizardPage*>& pages)
    {
        WSMultiDepDlg dialog(title(id), pages, nullptr);
        dialog.initUI(770, 640);
        dialog.afterCreateUI();
        save(&dialog, name);
    }

    void save(QWidget* window, const QString& name)
    {
        window->show();
        QApplication::processEvents();
        const QString path = m_dir.filePath(name + m_suffix + QStringLiteral(".png"));
        if (!window->grab().save(path)) {
            QTextStream(stderr) << "cannot write " << path << '\n';
            ++m_failures;
        }
    }

    QDir m_dir;
    QString m_suffix;
    CTaxData_Form m_form;
    BaseTaxPage m_formPage;
    DependantInfoStruct m_deps;
    std::vector<std::unique_ptr<CWSBaseData>> m_data;
    int m_failures = 0;
};

// The message dialogs, filled as an application would fill them; the caller's
// words come in the language of the run, the dialogs' own through the library.
int dialogShots(const QDir& dir, bool french)
{
    int failures = 0;
    const QString suffix = french ? QStringLiteral("-fr") : QStringLiteral("-en");
    auto save = [&](QDialog& dialog, const char* name) {
        dialog.show();
        QApplication::processEvents();
        const QString path = dir.filePath(QLatin1String(name) + suffix + QStringLiteral(".png"));
        if (!dialog.grab().save(path)) {
            QTextStream(stderr) << "cannot write " << path << '\n';
            ++failures;
        }
    };
    const auto say
        = [french](const char* en, const char* fr) { return QString::fromUtf8(french ? fr : en); };

    dlgGeneralInput input(say("Access code", "Code d'accès"), nullptr);
    input.setMsg(0, say("Access code for online filing", "Code d'accès pour la transmission"));
    input.setMsg(1,
                 say("Enter the access code printed on your notice of assessment.",
                     "Inscrivez le code d'accès imprimé sur votre avis de cotisation."));
    input.setMsg(2, say("It has eight letters and digits.", "Il compte huit lettres et chiffres."));
    input.setMsg(3, say("Where to find it:", "Où le trouver :"));
    input.setMsgLink(QStringLiteral("https://example.org/access-code"));
    save(input, "dlg-input");

    DlgMsgWithLink link(say("Update available", "Mise à jour offerte"), nullptr);
    link.setMsg1(say("A newer version of the forms is available.",
                     "Une version plus récente des formulaires est offerte."));
    link.setMsg2(say("Download it before you file the return.",
                     "Téléchargez-la avant de transmettre la déclaration."));
    link.setLink2(QStringLiteral("https://example.org/update"), say("Download", "Télécharger"));
    save(link, "dlg-link");

    COneQOneChkboxDialog question(
        say("Dependants", "Personnes à charge"),
        say("Copy the dependants of last year's return into this one?",
            "Copier les personnes à charge de la déclaration de l'an dernier dans celle-ci?"),
        say("Do not ask again", "Ne plus demander"), QMessageBox::Question, nullptr);
    save(question, "dlg-question");

    CYesNoContinueDlg warn(say("Delete return", "Supprimer la déclaration"), nullptr);
    warn.setMsg(1, say("Delete return:", "Supprimer la déclaration :"), false);
    warn.setMsg(2,
                say("The return of Marie Tremblay for 2025 will be deleted from this computer.",
                    "La déclaration de Marie Tremblay pour 2025 sera supprimée de cet ordinateur."),
                false);
    warn.setMsg(3, say("It cannot be recovered afterwards.", "Elle ne pourra pas être récupérée."),
                false);
    save(warn, "dlg-yesno");
    return failures;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTextStream err(stderr);
    if (argc != 2) {
        err << "usage: bedrock-gallery DIR\n";
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(dir.path())) {
        err << "cannot make " << dir.path() << '\n';
        return 1;
    }

    Panel panel;
    // Line edits are direct children of the panel, as a door box must be of its page.
    auto* entry = panel.add(QStringLiteral("string-entry.png"), QObject::tr("Entry box"),
                            new StringLineEdit(&panel));
    entry->setText(QStringLiteral("Marie Tremblay"));

    auto* amount
        = panel.add(QStringLiteral("amount-entry.png"), QObject::tr("Amount box, under the mouse"),
                    new DoubleLineEdit(&panel));
    amount->setDouble(1234.5);
    hover(amount);

    auto* door
        = panel.add(QStringLiteral("worksheet-door.png"),
                    QObject::tr("Worksheet door, under the mouse"), new DoubleLineEdit(&panel));
    door->setAttID(1);
    door->setWorksheetType(1);
    door->setDouble(8790);
    hover(door);

    auto* forward = panel.add(QStringLiteral("forward-box.png"),
                              QObject::tr("Amount from another form"), new CForwardEdit(&panel));
    forward->setDouble(52000);

    auto* disabled = panel.add(QStringLiteral("disabled-box.png"), QObject::tr("Disabled box"),
                               new DoubleLineEdit(&panel));
    disabled->setDouble(15.75);
    disabled->setEnabled(false);

    auto* zero
        = panel.add(QStringLiteral("zero-selected.png"),
                    QObject::tr("Zero amount, selected on focus"), new DoubleLineEdit(&panel));
    zero->setDouble(0);
    auto* zeroFilter = new ActionOnEvent(5, &panel);
    zeroFilter->installOn(zero);

    auto* provinces = panel.add(QStringLiteral("provinces.png"),
                                QObject::tr("Province of residence"), new CT1ComboBox(&panel));
    provinces->LoadProvs();
    provinces->SetCurSelData(ENUM_PROV_ON);

    auto* blankDate = panel.add(QStringLiteral("date-blank.png"), QObject::tr("Date, blank"),
                                new StyledDateEdit(&panel));
    blankDate->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    blankDate->clear();

    auto* setDate = panel.add(QStringLiteral("date-set.png"), QObject::tr("Date, set"),
                              new StyledDateEdit(&panel));
    setDate->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    setDate->setDate(QDate(1958, 3, 14));

    panel.add(QStringLiteral("nulldate-blank.png"), QObject::tr("Date with its own blank, blank"),
              new CustomNullDateEdit(QDate(), &panel));

    panel.add(QStringLiteral("nulldate-set.png"), QObject::tr("Date with its own blank, set"),
              new CustomNullDateEdit(QDate(2025, 12, 31), &panel));

    auto* stamp = panel.add(QStringLiteral("datetime-set.png"), QObject::tr("Date and time"),
                            new StyledDateTimeEdit(&panel));
    stamp->setDisplayFormat(QStringLiteral("yyyy/MM/dd HH:mm"));
    stamp->setDatetime(QDateTime(QDate(2026, 4, 30), QTime(23, 59)));

    auto* plain = panel.add(QStringLiteral("check-plain.png"), QObject::tr("Check box"),
                            new StyledCheckBox(&panel));
    plain->setText(QObject::tr("Resident of Canada all year"));
    plain->setChecked(true);

    auto* bold = panel.add(QStringLiteral("check-bold.png"), QObject::tr("Check box, bold"),
                           new StyledCheckBox(&panel));
    bold->setText(QObject::tr("Claiming the disability amount"));
    bold->makeBold();

    panel.show();
    panel.activateWindow();
    // The zero box takes the focus as a click would, so its filter selects the zero.
    zero->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();

    int failures = 0;
    auto save = [&](QWidget* w, const QString& file) {
        const QString path = dir.filePath(file);
        if (!w->grab().save(path)) {
            err << "cannot write " << path << '\n';
            ++failures;
        }
    };
    for (const Shot& shot : panel.shots())
        save(shot.widget, shot.file);
    save(&panel, QStringLiteral("panel.png"));

    failures += WorksheetShots(dir, QStringLiteral("-en")).run();
    failures += dialogShots(dir, false);
    // The same worksheets as a French-speaking user sees them.
    if (!installLibBedrockTranslator(QLocale(QLocale::French, QLocale::Canada))) {
        err << "no French translation\n";
        ++failures;
    }
    failures += WorksheetShots(dir, QStringLiteral("-fr")).run();
    failures += dialogShots(dir, true);
    return failures == 0 ? 0 : 1;
}
