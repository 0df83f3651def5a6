// Form pages and worksheet dialogs, driven as a person uses them.
#include <LibBedrock.h>

#include <QButtonGroup>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

namespace {

template<typename W, typename F, typename X, typename G>
void bindBox(std::map<QString, W*>& edits, std::map<W*, F*>& fields, X* w, G* f)
{
    edits[w->objectName()] = w;
    fields[w] = f;
}

template<typename W> W* named(QWidget* parent, const char* name)
{
    auto* w = new W(parent);
    w->setObjectName(QString::fromLatin1(name));
    parent->layout()->addWidget(w);
    return w;
}
template<typename W> W* named(QWidget* parent, W*& w, const char* name)
{
    return w = named<W>(parent, name);
}

// A button group `name` of two radio buttons, ids 1 and 2.
QButtonGroup* radios(QWidget* parent, const QString& name)
{
    auto* group = new QButtonGroup(parent);
    group->setObjectName(name);
    for (int id : { 1, 2 })
        group->addButton(named<QRadioButton>(parent, qPrintable(name + QString::number(id))), id);
    return group;
}

struct Fields {
    CFloatField amount, shown;
    CBoolField tick, tick10, tick11;
    CIntField choice, prov;
    CDateField born;
    CDateTimeField stamp;
    CStringField name, shownName, note;
};

// The worksheet: line 2 is line 1 doubled; it counts its calculations.
struct Sheet : CWSBaseData {
    CFloatField line1, line2;
    CIntField pick;
    CStringField memo;
    int calculations = 0;
    int Calculate() override
    {
        ++calculations;
        line2.m_value = line1.m_value * 2;
        return 0;
    }
};

class SheetPage : public PpgWizardPage
{
public:
    SheetPage(Sheet* sheet, QWidget* parent)
        : PpgWizardPage(sheet, nullptr, parent)
        , s(sheet)
    {
        setLayout(new QVBoxLayout);
        bindBox(m_floatEdits, m_floatFields, named(this, line1, "line1"), &s->line1);
        bindBox(m_shownFloatEdits, m_shownFloatFields, named(this, line2, "line2"), &s->line2);
        bindBox(m_multiLineEdits, m_multiLineFields, named(this, memo, "memo"), &s->memo);
        bindBox(m_radioEdits, m_radioFields, group = radios(this, "pick"), &s->pick);
    }
    void AssociateFormData() override
    {
        connect(line1, SIGNAL(editingFinished()), this, SLOT(onFloatEditFinished()));
        connect(group, SIGNAL(idClicked(int)), this, SLOT(onRadioIdClicked(int)));
    }
    Sheet* s;
    DoubleLineEdit *line1, *line2;
    QPlainTextEdit* memo;
    QButtonGroup* group;
};

class TestPage : public BaseTaxPage
{
public:
    TestPage(CTaxData_Form* form, Fields& fields, QWidget* parent)
        : BaseTaxPage("  ", form, parent)
        , f(fields)
    {
        setLayout(new QVBoxLayout);
        // Bound here already; AssociateFormData only connects.
        bindBox(m_floatEdits, m_floatFields, named(this, amount, "amount"), &f.amount);
        bindBox(m_shownFloatEdits, m_shownFloatFields, named(this, shown, "shown"), &f.shown);
        named(this, door, "door")->setAttID(30100);
        forward = named<DoubleLineEdit>(this, "forward");
        bindBox(m_checkEdits, m_checkFields, named(this, tick, "tick"), &f.tick);
        bindBox(m_checkEdits, m_checkFields, named(this, tick10, "tick10"), &f.tick10);
        tick10->setText("0123456789");
        bindBox(m_checkEdits, m_checkFields, named(this, tick11, "tick11"), &f.tick11);
        tick11->setText("0123456789A");
        bindBox(m_radioEdits, m_radioFields, group = radios(this, "choice"), &f.choice);
        bindBox(m_comboEdits, m_comboFields, named(this, prov, "prov"), &f.prov);
        prov->LoadProvs();
        bindBox(m_dateEdits, m_dateFields, named(this, born, "born"), &f.born);
        bindBox(m_dateTimeEdits, m_dateTimeFields, named(this, stamp, "stamp"), &f.stamp);
        bindBox(m_stringEdits, m_stringFields, named(this, name, "name"), &f.name);
        bindBox(m_shownStringEdits, m_shownStringFields, named(this, shownName, "shownName"),
                &f.shownName);
        bindBox(m_multiLineEdits, m_multiLineFields, named(this, note, "note"), &f.note);
        forward->setAttID(31800);
        m_forwardMap[31800] = 2;
    }
    void AssociateFormData() override
    {
        connect(amount, SIGNAL(editingFinished()), this, SLOT(onFloatEditFinished()));
        connect(tick, SIGNAL(stateChanged(int)), this, SLOT(onBoolChanged(int)));
        connect(group, SIGNAL(idClicked(int)), this, SLOT(onRadioIdClicked(int)));
        connect(prov, SIGNAL(currentIndexChanged(int)), this, SLOT(onCmbCurIndexChanged(int)));
        connect(born, SIGNAL(dateChanged(QDate)), this, SLOT(onDateChanged(QDate)));
        connect(stamp, SIGNAL(dateTimeChanged(QDateTime)), this,
                SLOT(onDateTimeChanged(QDateTime)));
        connect(name, SIGNAL(editingFinished()), this, SLOT(onStringEditFinished()));
        connect(note, SIGNAL(textChanged()), this, SLOT(onMultiLineEditFinished()));
    }
    PpgWizardPage* getWorksheetEditDlg(int id, long, QString& title) override
    {
        if (id != 30100)
            return nullptr;
        openedTitle = title;
        auto* page = new SheetPage(&sheet, nullptr);
        page->m_extraWidth = 30;
        return page;
    }
    int getWorksheetEditDlg(int id, long, QString& title, std::list<PpgWizardPage*>& pages) override
    {
        openedTitle = title;
        if (id != 58400)
            return 0;
        auto* marie = new SheetPage(&sheet, nullptr);
        marie->m_tabTitle = "Marie";
        pages = { nullptr, new SheetPage(&sheet, nullptr), marie };
        return 3;
    }
    Fields& f;
    Sheet sheet;
    QString openedTitle;
    DoubleLineEdit *amount, *shown, *door, *forward;
    StyledCheckBox *tick, *tick10, *tick11;
    QButtonGroup* group;
    CT1ComboBox* prov;
    StyledDateEdit* born;
    StyledDateTimeEdit* stamp;
    QLineEdit *name, *shownName;
    QPlainTextEdit* note;
};

// Counts what reaches the application's window: the page's forwarded requests.
struct Window : QWidget {
    QList<int> forwarded;
    bool event(QEvent* e) override
    {
        if (auto* fwd = dynamic_cast<EventForwardEdit*>(e))
            forwarded << fwd->m_value;
        return QWidget::event(e);
    }
};

// Runs `look` on the modal dialog as soon as it is up, then closes it.
void whenModal(std::function<void(QWidget*)> look)
{
    auto* timer = new QTimer;
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, [timer, look] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            timer->stop();
            timer->deleteLater();
            // Offscreen does not activate a new dialog; focus moves need it.
            QApplication::setActiveWindow(modal);
            QVERIFY(QTest::qWaitForWindowActive(modal));
            look(modal);
            modal->close();
        }
    });
    timer->start();
}

} // namespace

class tst_FormPages : public QObject
{
    Q_OBJECT

    CTaxData_Form m_form { ENUMTYPE_FORM(2) };
    std::unique_ptr<Fields> m_fields;
    Window m_window;
    TestPage* m_page = nullptr;
    QSignalSpy* m_calc = nullptr;

    // signalCalc with a null field: the whole form, after a worksheet.
    int wholeFormCalcs() const
    {
        int n = 0;
        for (const QList<QVariant>& args : *m_calc)
            n += args.at(1).value<CField*>() == nullptr;
        return n;
    }

private Q_SLOTS:
    void init()
    {
        m_fields = std::make_unique<Fields>();
        Fields& f = *m_fields;
        f.amount.m_value = 10;
        f.shown.m_value = 20;
        f.choice.m_value = 2;
        f.prov.m_value = ENUM_PROV_QC;
        f.born.m_value = QDate(1950, 6, 1);
        f.stamp.m_value = QDateTime(QDate(2026, 1, 2), QTime(3, 4));
        f.name.m_text = "Marie";
        f.shownName.m_text = "Shown";
        f.note.m_text = "first note";
        m_page = new TestPage(&m_form, f, &m_window);
        if (!m_window.layout())
            new QVBoxLayout(&m_window);
        m_window.layout()->addWidget(m_page);
        m_page->show();
        m_calc = new QSignalSpy(m_page, &BaseTaxPage::signalCalc);
        m_window.show();
        m_window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_window));
        m_page->syncData();
    }
    void cleanup()
    {
        delete m_calc;
        delete m_page;
        m_window.forwarded.clear();
    }

    void showsEveryFieldWithoutWritingBack()
    {
        QCOMPARE(m_page->amount->text(), "10.00");
        QCOMPARE(m_page->shown->text(), "20.00");
        QCOMPARE(m_page->group->checkedId(), 2);
        QCOMPARE(m_page->prov->GetCurSelData(), int(ENUM_PROV_QC));
        QCOMPARE(m_page->born->date(), QDate(1950, 6, 1));
        QCOMPARE(m_page->stamp->dateTime(), m_fields->stamp.m_value);
        QCOMPARE(m_page->shownName->text(), "Shown");
        QCOMPARE(m_page->note->toPlainText(), "first note");
        // The setters' change signals reached the handlers without effect.
        QCOMPARE(m_calc->count(), 0);
        QCOMPARE(m_fields->note.m_text, "first note");
        // Check boxes are bold unless their label is 1 to 10 characters.
        QVERIFY(m_page->tick->styleSheet().contains("indicator:!checked"));
        QVERIFY(!m_page->tick10->styleSheet().contains("indicator:!checked"));
        QVERIFY(m_page->tick11->styleSheet().contains("indicator:!checked"));
        // A radio value without a button shows no choice.
        m_fields->choice.m_value = 7;
        m_page->syncData();
        QCOMPARE(m_page->group->checkedId(), -1);
    }

    void editsReachTheirFields()
    {
        m_page->amount->setFocus();
        m_page->amount->selectAll();
        QTest::keyClicks(m_page->amount, "1,234.5");
        QTest::keyClick(m_page->amount, Qt::Key_Tab);
        QCOMPARE(m_fields->amount.m_value, 1234.5);
        QCOMPARE(m_calc->count(), 1);
        QCOMPARE(m_calc->at(0).at(1).value<CField*>(), static_cast<CField*>(&m_fields->amount));

        m_page->tick->setFocus();
        QTest::keyClick(m_page->tick, Qt::Key_Space);
        QCOMPARE(m_fields->tick.m_value, 1);
        m_page->group->button(1)->setFocus();
        QTest::keyClick(m_page->group->button(1), Qt::Key_Space);
        QCOMPARE(m_fields->choice.m_value, 1);
        m_page->prov->setFocus();
        QTest::keyClick(m_page->prov, Qt::Key_Down);
        QCOMPARE(m_fields->prov.m_value, int(ENUM_PROV_SK));
        m_page->born->setDate(QDate(1960, 2, 3));
        QCOMPARE(m_fields->born.m_value, QDate(1960, 2, 3));
        QCOMPARE(m_calc->count(), 5);

        m_page->name->setFocus();
        m_page->name->setText(" Luc ");
        QTest::keyClick(m_page->name, Qt::Key_Return);
        QCOMPARE(m_fields->name.m_text, " Luc "); // as typed
        m_page->PutDataToDoc();
        QCOMPARE(m_fields->name.m_text, "Luc"); // trimmed in one go

        // A multi-line box never recalculates and is loaded only once.
        m_page->note->setFocus();
        const int calcs = m_calc->count();
        QTest::keyClicks(m_page->note, "!");
        QCOMPARE(m_fields->note.m_text, "!first note");
        QCOMPARE(m_calc->count(), calcs);
        m_fields->note.m_text = "from the field";
        m_page->syncData();
        QCOMPARE(m_page->note->toPlainText(), "!first note");
    }

    void returnMovesOnWhenReleased()
    {
        // A date box keeps its releases; in a multi-line box Return is a new line.
        const std::pair<const char*, bool> rows[]
            = { { "amount", true }, { "born", true }, { "note", false } };
        for (auto [box, moves] : rows) {
            m_page->findChild<QWidget*>(box)->setFocus();
            QWidget* before = QApplication::focusWidget();
            QTest::keyPress(before, Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), before);
            QTest::keyRelease(before, Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget() != before, moves);
        }
    }

    void forwardedDoorPostsOneRequestUpAndSaysSo()
    {
        QTest::mouseClick(m_page->forward, Qt::LeftButton);
        QTRY_COMPARE(m_window.forwarded, QList<int>({ 2 }));
        QCoreApplication::processEvents();
        QCOMPARE(m_window.forwarded.size(), 1);
        QVERIFY(m_page->openedTitle.isEmpty());
        QCOMPARE(m_page->getTooltip(31800),
                 QString("Calculated from tax form [%1]").arg(Global_Forms_Info[2].shortName));
        QCOMPARE(m_page->getTooltip(30100), "Press key or mouse to open worksheet");
    }

    void doorOpensWorksheetThatRecalculates()
    {
        QSize size;
        QString title;
        whenModal([&](QWidget* dialog) {
            size = dialog->size();
            title = dialog->windowTitle();
            auto* page = dialog->findChild<SheetPage*>();
            page->line1->setFocus();
            QTest::keyClicks(page->line1, "7");
            QTest::keyClick(page->line1, Qt::Key_Tab);
        });
        QTest::mouseClick(m_page->door, Qt::LeftButton);
        QTRY_COMPARE(wholeFormCalcs(), 1);
        QCOMPARE(title, "Federal Age Amount Worksheet (30100)");
        QCOMPARE(size, QSize(800, 640));
        QCOMPARE(m_page->sheet.line2.m_value, 14.0);
    }

    void dependantWorksheetOpensInTabs()
    {
        QStringList tabs;
        whenModal([&](QWidget* dialog) {
            auto* tabWidget = dialog->findChild<QTabWidget*>("tabWgt1");
            for (int i = 0; i < tabWidget->count(); ++i)
                tabs << tabWidget->tabText(i);
        });
        QCoreApplication::postEvent(m_page, new EventNeedWorksheet(58400));
        QTRY_COMPARE(wholeFormCalcs(), 1);
        QCOMPARE(tabs, QStringList({ "Dependant 2", "Marie" }));
        QCOMPARE(m_page->openedTitle, "Caregiver Amount (58400)");
    }

    void titles()
    {
        QCOMPARE(m_page->getTitle(), "Page 0");
        QString title = "kept";
        QCOMPARE(m_page->getWSDefaultTitle(12345, title), 0);
        QCOMPARE(title, "kept");
    }

    void focusOnAForwardBoxTellsWhere()
    {
        auto* box = m_page->amount;
        box->setWorksheetType(3);
        QString text;
        whenModal([&](QWidget* dialog) { text = static_cast<QMessageBox*>(dialog)->text(); });
        m_page->onFocussed(true, box);
        QCOMPARE(text, "field"); // "to field" past its third character
        QCOMPARE(m_page->m_lastFocused, box);
        m_page->onFocussed(true, box); // the same box again clears, says nothing
        QCOMPARE(m_page->m_lastFocused, static_cast<StringLineEdit*>(nullptr));
    }

    void worksheetPageRecalculatesOnceAndRedraws()
    {
        Sheet sheet;
        sheet.line1.m_value = 1;
        sheet.pick.m_value = 2;
        WizardBase wizard(nullptr, "t");
        auto* page = new SheetPage(&sheet, nullptr);
        wizard.addPage(page);
        wizard.initUI(400, 300);
        QCOMPARE(page->line2->text(), "2.00");
        sheet.calculations = 0;
        page->memo->document()->setPlainText("typed");
        page->memo->document()->setUndoRedoEnabled(true);
        page->line1->setText("5");
        Q_EMIT page->line1->editingFinished();
        QCOMPARE(sheet.calculations, 1);
        QCOMPARE(page->line2->text(), "10.00");
        QVERIFY(!page->memo->document()->isUndoAvailable()); // set again from its field
        sheet.pick.m_value = 9;
        page->GetDataFromDoc();
        QCOMPARE(page->group->checkedId(), 2); // no button 9: the old choice stays
        page->line1->setText(" 3 ");
        QVERIFY(page->validatePage());
        QCOMPARE(sheet.line1.m_value, 3.0);
    }

    void baseWorksheetPageAsksTheFormPage()
    {
        Sheet sheet;
        struct Page : BaseWorksheetPage {
            using BaseWorksheetPage::BaseWorksheetPage;
        } page(&sheet, &m_form, m_page);
        page.GetDataFromDoc();
        QCOMPARE(sheet.calculations, 0);
        QCOMPARE(m_calc->count(), 1);
        QCOMPARE(m_calc->at(0).at(1).value<CField*>(), static_cast<CField*>(nullptr));
    }

    // Outside the usual one-shot use, nothing is freed or bound twice.
    void hostileUse()
    {
        Sheet sheet;
        std::list<PpgWizardPage*> pages { new SheetPage(&sheet, nullptr) };
        WSMultiDepDlg dialog("t", pages, nullptr);
        dialog.initUI(400, 300);
        dialog.initUI(400, 300);
        QCOMPARE(dialog.findChild<QTabWidget*>("tabWgt1")->count(), 1);
        sheet.calculations = 0;
        Q_EMIT pages.front()->findChild<DoubleLineEdit*>("line1")->editingFinished();
        QCOMPARE(sheet.calculations, 1); // one connection, one calculation

        // A box bound to no field is passed over, as the handlers pass it over.
        auto* loose = new DoubleLineEdit(m_page);
        loose->setObjectName("loose");
        m_page->m_floatEdits["loose"] = loose;
        m_page->m_floatFields[loose] = nullptr;
        m_page->GetDataFromDoc();
        m_page->PutDataToDoc();
        QVERIFY(loose->text().isEmpty());
    }

    void scrollArea()
    {
        auto* content = new QWidget;
        ScrollTaxForm area("#f4f4ff", nullptr, content);
        QCOMPARE(area.getCtntWgt(), content);
        QVERIFY(area.widgetResizable());
        QCOMPARE(area.styleSheet(), "background:#f4f4ff");
        QCOMPARE(area.verticalScrollBar()->styleSheet(), "background: #e0e0e0;");
    }
};

QTEST_MAIN(tst_FormPages)
#include "tst_formpages.moc"
