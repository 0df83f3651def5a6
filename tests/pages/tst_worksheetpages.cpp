// The worksheet pages in their dialog, used as a person does: typing, ticks, a dependant, Finish.
#include "widgettests.h"

#include <LibBedrock.h>

#include <QtTest>

#include <cstring>
#include <memory>
#include <string>

namespace {

enum Kind { Self58440, Transfer58480, Tuition58600, Adoption, Age, Caregiver, InfirmDep, Spouse };
enum Act { Type, Tick, Choose, Finish }; // Finish: typed, not left

// Counts the sheet's own calculations; a frozen sheet keeps the values a test set.
struct Counter {
    int calculations = 0;
    bool frozen = false;
};

template<typename D> struct Counted : D, Counter {
    int Calculate() override
    {
        ++calculations;
        return frozen ? 0 : D::Calculate();
    }
};

double valueOf(CField* field)
{
    if (auto* f = dynamic_cast<CFloatField*>(field))
        return f->m_value;
    if (auto* f = dynamic_cast<CIntField*>(field))
        return f->m_value;
    auto* f = dynamic_cast<CBoolField*>(field);
    return f ? f->m_value : 0.0;
}

// A page over sample figures, with two dependants: a child and an adult.
struct Sheet {
    explicit Sheet(Kind kind)
    {
        deps.AllocData(2);
        std::strcpy(deps.m_pData[0].m_FirstName, "Anna");
        std::strcpy(deps.m_pData[1].m_FirstName, "Louis");
        deps.m_pData[0].m_BirthDate = QDate(2012, 3, 4);
        deps.m_pData[1].m_BirthDate = QDate(1950, 3, 4);
        deps.m_pData[0].m_NetIncome = 1234.5;
        deps.m_pData[1].m_NetIncome = 9876.54;
        QWidget* none = nullptr;
        if (kind == Self58440) {
            auto* d = make<WS58440_DisabilitySelf_tab1, CWSDisabilityAmtData>(none);
            d->SetF5844Parameter(5758, 3373, true);
            d->fld_ws5844_claim.m_value = 1;
            d->fld_ws5844_2.m_value = 4500;
        } else if (kind == Transfer58480) {
            auto* d = make<WS58480_DisabilityDepTransfer_tab1, CWSDisabilityTransferAmtData>(none);
            d->m_pDepInfo = &deps;
            d->DepIdx.m_value = 1;
            d->SetF5848Parameter(9428, 5758, 3373);
            d->fld_Line3ChldCareExp.m_value = 4200;
            d->fld_4.m_value = 12000;
            d->DepTaxInc.m_value = 15000;
        } else if (kind == Tuition58600) {
            auto* d = make<WS58600_tab1, DataWS58600>(&form);
            d->fld_5860.m_value = 5000;
            // The form pro-rates by three quarters, as an application's would.
            formCalc = [d] { d->Calculate(0.75); };
        } else if (kind == Adoption) {
            auto* d = make<WSAdoptionExpense_tab1, DataWSAdoptionExpense>(&form);
            d->fld_Adopt_ExpAmt_1.m_value = 12000;
            d->fld_Adopt_ExpAmt_2.m_value = 3456.78;
        } else if (kind == Age) {
            auto* d = make<WSAgeAmount_tab1, CWSAgeAmtData>(none);
            d->SetAgeParameter(9028, 45522, 0.15, 365, 365, true, 61234.56);
            // Its lines are on no list; the test lists them to read them by name.
            int n = 0;
            for (CFloatField* line : { &d->AgeLine1, &d->AgeLine2, &d->AgeLine3, &d->AgeLine4,
                                       &d->AgeLine5, &d->AgeLine6, &d->AgeLine7 }) {
                line->m_name = "AgeLine" + std::to_string(++n);
                d->m_fields.push_back(line);
            }
        } else if (kind == Caregiver) {
            auto* d = make<WSCaregiverAmt_Dep, CWSCaregiverAmtData>(none);
            d->m_pDepInfo = &deps;
            d->DepIdx.m_value = 2;
            d->SetParameter(21000, 5615, 2, 800);
        } else {
            auto* d = kind == Spouse ? make<WSInfirmDepAmt_SpouseDep, CWSInfirmDepAmtData>(none)
                                     : make<WSInfirmDepAmt_Dep, CWSInfirmDepAmtData>(&form);
            d->m_pDepInfo = &deps;
            d->DepIdx.m_value = 2;
            d->SetParameterAndF5816Info(12000, 5615, 2, 800);
            // Called past the counter: only the page's own calculations count.
            formCalc = [d] { d->CWSInfirmDepAmtData::Calculate(); };
            formCalc();
        }
        QObject::connect(&form, &BaseTaxPage::signalCalc, [this] {
            if (formCalc && !counter->frozen)
                formCalc();
        });
    }

    template<typename P, typename D, typename Parent> D* make(Parent parent)
    {
        auto* d = new Counted<D>;
        data.reset(d);
        counter = d;
        page = new P(d, nullptr, parent);
        viaForm = parent != nullptr;
        return d;
    }

    void open()
    {
        wizard.addPage(page);
        wizard.initUI(770, 640);
        showActive(wizard);
        counter->calculations = 0;
        calc.clear();
    }

    std::map<QString, double> values()
    {
        std::map<QString, double> all;
        for (CField* f : data->m_fields)
            all[QString::fromStdString(f->m_name)] = valueOf(f);
        return all;
    }

    template<typename W = QWidget> W* box(const QString& name) { return page->findChild<W*>(name); }
    static QString shown(double value) { return QString::number(value, 'f', 2); }

    DependantInfoStruct deps;
    BaseTaxPage form { 1, nullptr, nullptr };
    std::function<void()> formCalc;
    std::unique_ptr<CWSBaseData> data;
    Counter* counter = nullptr;
    WizardBase wizard { nullptr, QStringLiteral("worksheet") };
    QSignalSpy calc { &form, &BaseTaxPage::signalCalc };
    PpgWizardPage* page = nullptr;
    bool viaForm = false; // its numbers come from the form page behind it
};

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Act)

class tst_WorksheetPages : public QObject
{
    Q_OBJECT
private slots:
    // Each amount box shows its line's field; only typed lines are open. A box is named as
    // its field, read-only; "+" marks an open one, "=field" another field, "=" none.
    void boxesShowTheirLines_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QStringList>("boxes");
        const QStringList dep
            = { "fld_BaseAmount=BaseAmount", "fld_DepNetInc=DepNetInc", "fld_3", "fld_4" };
        // clang-format off
        QTest::newRow("58440") << Self58440 << QStringList{ "fld_ws5844_1", "fld_ws5844_2+", "fld_ws5844_3+", "fld_ws5844_4", "fld_ws5844_4_1=fld_ws5844_4", "fld_ws5844_5" };
        QTest::newRow("58480") << Transfer58480 << QStringList{ "fld_BaseAmount+", "fld_Line2Max+", "fld_Line3ChldCareExp+", "fld_Line4ExpBase+",
            "fld_Line5CareExpAfter", "fld_Line5CareExpAfter_1=fld_Line5CareExpAfter", "fld_Line6AmtUnder18+", "fld_2+", "fld_Line8+", "fld_4+",
            "Amt09FromFedProvTax=", "fld_5+", "DepTaxInc+", "fld_7+", "fld_claim+" };
        QTest::newRow("58600") << Tuition58600 << QStringList{ "fld_5860+", "fld_claim" };
        QTest::newRow("adoption") << Adoption << QStringList{ "fld_Adopt_ExpAmt_1+", "fld_Adopt_ExpAmt_2+", "fld_Adopt_ExpAmt_3+", "fld_Adopt_ExpAmt_4+", "fld_Adopt_ExpAmt_5+", "fld_Adopt_ExpAmt_6+" };
        QTest::newRow("age") << Age << QStringList{ "fld_ws5808_1=AgeLine1", "fld_ws5808_2=AgeLine2", "fld_ws5808_3=AgeLine3", "fld_ws5808_4=AgeLine4",
            "fld_ws5808_5=AgeLine5", "fld_ws5808_6=AgeLine6", "fld_ws5808_7=AgeLine7" };
        QTest::newRow("caregiver") << Caregiver << dep + QStringList{ "fld_AmountClaim+=AmountClaim" };
        QTest::newRow("infirm") << InfirmDep << dep + QStringList{ "fld_AmountClaim=AmountClaim" };
        QTest::newRow("spouse") << Spouse << dep + QStringList{ "fld_AmountClaim=AmountClaim" };
        // clang-format on
    }
    void boxesShowTheirLines()
    {
        QFETCH(Kind, kind);
        QFETCH(QStringList, boxes);
        Sheet s(kind);
        s.counter->frozen = true;
        double value = 100;
        for (CField* f : s.data->m_fields)
            if (auto* amount = dynamic_cast<CFloatField*>(f))
                amount->m_value = value += 11.11;
        const auto values = s.values();
        s.open();
        QStringList seen, expected;
        for (const QString& row : boxes) {
            const QString box = row.section('=', 0, 0).remove('+');
            const QString field = row.contains('=') ? row.section('=', 1) : box;
            auto* edit = s.box<QLineEdit>(box);
            seen << box + ' ' + edit->text() + (edit->isReadOnly() ? "" : " open");
            expected << box + ' ' + (field.isEmpty() ? QString() : s.shown(values.at(field)))
                    + (row.contains('+') ? " open" : "");
        }
        QCOMPARE(seen, expected);
    }

    // One change: the value reaches its field, the sheet is worked out once (or the form
    // behind it is asked, with no field), and the page is redrawn. Typed but not left,
    // nothing is stored or worked out, the adoption total included; Finish stores nothing.
    void changes_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<Act>("act");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("field"); // empty: no field changes
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("other");
        QTest::addColumn<QString>("otherText");
        // clang-format off
        QTest::newRow("58440 line 2 under the base: line 4 is 0") << Self58440 << Type << "fld_ws5844_2" << "3000" << "fld_ws5844_2" << 3000.0 << "fld_ws5844_5" << "5758.00";
        QTest::newRow("58440 negative line 2 shows the sheet's 0") << Self58440 << Type << "fld_ws5844_2" << "-10" << "fld_ws5844_2" << 0.0 << "fld_ws5844_2" << "0.00";
        QTest::newRow("58440 line 4 carried to the outer column") << Self58440 << Type << "fld_ws5844_3" << "4000" << "fld_ws5844_3" << 4000.0 << "fld_ws5844_4_1" << "500.00";
        QTest::newRow("58440 untick: no supplement") << Self58440 << Tick << "fld_ws5844_claim" << "" << "fld_ws5844_claim" << 0.0 << "fld_ws5844_5" << "0.00";
        QTest::newRow("58440 calculated line 4 takes no typing") << Self58440 << Type << "fld_ws5844_4" << "9" << "" << 0.0 << "fld_ws5844_4" << "1127.00";
        QTest::newRow("58480 line 5 carried to the outer column") << Transfer58480 << Type << "fld_Line3ChldCareExp" << "5000" << "fld_Line3ChldCareExp" << 5000.0 << "fld_Line5CareExpAfter_1" << "1627.00";
        QTest::newRow("58480 line 9 of 0") << Transfer58480 << Type << "fld_4" << "0" << "fld_4" << 0.0 << "fld_7" << "0.00";
        QTest::newRow("58480 overwrite ticked") << Transfer58480 << Tick << "fld_overwrite" << "" << "fld_overwrite" << 1.0 << "fld_claim" << "11359.00";
        QTest::newRow("58480 last dependant, an adult: no line 6") << Transfer58480 << Choose << "DepIdx" << "2" << "DepIdx" << 2.0 << "fld_Line8" << "9428.00";
        QTest::newRow("58480 nobody chosen: no claim") << Transfer58480 << Choose << "DepIdx" << "0" << "DepIdx" << 0.0 << "fld_claim" << "0.00";
        QTest::newRow("58600 total pro-rated by the form") << Tuition58600 << Type << "fld_5860" << "8000" << "fld_5860" << 8000.0 << "fld_claim" << "6000.00";
        QTest::newRow("58600 calculated claim takes no typing") << Tuition58600 << Type << "fld_claim" << "1" << "" << 0.0 << "fld_claim" << "3750.00";
        QTest::newRow("adoption first child: negative kept, no Calculate") << Adoption << Type << "fld_Adopt_ExpAmt_1" << "-5" << "fld_Adopt_ExpAmt_1" << -5.0 << "fld_Adopt_ExpAmt_1" << "-5.00";
        QTest::newRow("age: worked out when opened, takes no typing") << Age << Type << "fld_ws5808_2" << "1" << "" << 0.0 << "fld_ws5808_7" << "6671.12";
        QTest::newRow("caregiver first dependant") << Caregiver << Choose << "DepIdx" << "1" << "DepIdx" << 1.0 << "fld_DepNetInc" << "1234.50";
        QTest::newRow("caregiver overwrite ticked") << Caregiver << Tick << "fld_bOverwrite" << "" << "bOverwrite" << 1.0 << "fld_AmountClaim" << "4815.00";
        QTest::newRow("caregiver claim without overwrite is recalculated") << Caregiver << Type << "fld_AmountClaim" << "1000" << "AmountClaim" << 4815.0 << "fld_AmountClaim" << "4815.00";
        QTest::newRow("infirm first dependant, via the form") << InfirmDep << Choose << "DepIdx" << "1" << "DepIdx" << 1.0 << "fld_DepNetInc" << "1234.50";
        QTest::newRow("58440 Finish") << Self58440 << Finish << "fld_ws5844_2" << "321" << "" << 0.0 << "fld_ws5844_2" << "321";
        QTest::newRow("58480 Finish") << Transfer58480 << Finish << "DepTaxInc" << "321" << "" << 0.0 << "DepTaxInc" << "321";
        QTest::newRow("58600 Finish") << Tuition58600 << Finish << "fld_5860" << "321" << "" << 0.0 << "fld_5860" << "321";
        QTest::newRow("adoption Finish") << Adoption << Finish << "fld_Adopt_ExpAmt_3" << "321" << "" << 0.0 << "fld_Adopt_ExpAmt_3" << "321";
        QTest::newRow("caregiver Finish") << Caregiver << Finish << "fld_AmountClaim" << "321" << "" << 0.0 << "fld_AmountClaim" << "321";
        // clang-format on
    }
    void changes()
    {
        QFETCH(Kind, kind);
        QFETCH(Act, act);
        QFETCH(QString, box);
        QFETCH(QString, input);
        QFETCH(QString, field);
        QFETCH(double, value);
        QFETCH(QString, other);
        QFETCH(QString, otherText);
        Sheet s(kind);
        s.open();
        const auto before = s.values();
        QWidget* w = s.box(box);
        if (act == Type || act == Finish) {
            // Leaving the box that had the focus is an edit of its own: count from here.
            w->setFocus();
            s.counter->calculations = 0;
            s.calc.clear();
            QTest::keyClick(w, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(w, input);
            QCOMPARE(s.values(), before);
            QCOMPARE(s.counter->calculations + s.calc.count(), 0);
            if (kind == Adoption)
                QCOMPARE(static_cast<DataWSAdoptionExpense*>(s.data.get())->CalcResult(1e9),
                         15456.78);
            if (act == Finish)
                QVERIFY(s.wizard.validateCurrentPage());
            else
                QTest::keyClick(w, Qt::Key_Tab);
        } else if (act == Tick)
            QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(8, w->height() / 2));
        else
            qobject_cast<QComboBox*>(w)->setCurrentIndex(input.toInt());
        const bool changed = !field.isEmpty();
        if (changed)
            QCOMPARE(s.values().at(field), value);
        else
            QCOMPARE(s.values(), before);
        QCOMPARE(s.box<QLineEdit>(other)->text(), otherText);
        QCOMPARE(s.counter->calculations, changed && !s.viaForm ? 1 : 0);
        QCOMPARE(s.calc.count(), changed && s.viaForm ? 1 : 0);
        if (s.calc.count())
            QCOMPARE(s.calc.at(0).at(1).value<CField*>(), nullptr);
        if (act == Finish)
            return;
        // Every bound widget shows its field again, the shown-only ones too.
        PpgWizardPage* p = s.page;
        for (auto* fields : { &p->m_floatFields, &p->m_shownFloatFields })
            for (auto& [edit, f] : *fields)
                QCOMPARE(edit->text(), s.shown(f->m_value));
        for (auto& [check, f] : p->m_checkFields)
            QCOMPARE(check->isChecked(), valueOf(f) != 0);
        for (auto& [combo, f] : p->m_comboFields)
            QCOMPARE(combo->currentData().toInt(), int(valueOf(f)));
    }
};

QTEST_MAIN(tst_WorksheetPages)
#include "tst_worksheetpages.moc"
