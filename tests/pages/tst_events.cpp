#include "actiononevent.h"
#include "myevent.h"
#include "stringlineedit.h"
#include "widgettests.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <functional>
#include <memory>

namespace {

using MakeEvent = std::function<QEvent*()>;
using Trigger = std::function<void(QLineEdit*)>;

// Counts the events of one type that get past the filters installed before it.
class Counter : public QObject
{
public:
    Counter(QObject* target, QEvent::Type type)
        : type(type)
    {
        target->installEventFilter(this);
    }
    const QEvent::Type type;
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        count += e->type() == type;
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(MakeEvent)
Q_DECLARE_METATYPE(Trigger)

class tst_Events : public QObject
{
    Q_OBJECT
private slots:
    void kinds_data()
    {
        QTest::addColumn<MakeEvent>("make");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("value");
        QTest::addColumn<bool>("needWorksheet"); // told apart by class too
        // clang-format off
        QTest::newRow("plain event") << MakeEvent([] { return new MyEvent(4321, -7); }) << 4321 << -7 << false;
        QTest::newRow("plain 1234 is no worksheet request") << MakeEvent([] { return new MyEvent(1234, 5); }) << 1234 << 5 << false;
        QTest::newRow("T1013 resync") << MakeEvent([] { return new EventT1013Sync; }) << 1013 << 0 << false;
        QTest::newRow("RC59 resync") << MakeEvent([] { return new EventRC59ESync; }) << 5901 << 0 << false;
        QTest::newRow("by event id") << MakeEvent([] { return new EventByEventID(777); }) << 777 << 0 << false;
        QTest::newRow("worksheet request") << MakeEvent([] { return new EventNeedWorksheet(42); }) << 1234 << 42 << true;
        QTest::newRow("forward to a form") << MakeEvent([] { return new EventForwardEdit(9); }) << 1235 << 9 << false;
        // clang-format on
    }
    void kinds()
    {
        QFETCH(MakeEvent, make);
        QFETCH(int, type);
        QFETCH(int, value);
        QFETCH(bool, needWorksheet);
        std::unique_ptr<QEvent> e(make());
        auto* mine = dynamic_cast<MyEvent*>(e.get());
        QVERIFY(mine);
        QCOMPARE(int(e->type()), type);
        QCOMPARE(mine->m_value, value);
        QCOMPARE(dynamic_cast<EventNeedWorksheet*>(e.get()) != nullptr, needWorksheet);
    }

    void selectZero_data()
    {
        QTest::addColumn<int>("action");
        QTest::addColumn<bool>("amountBox");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Trigger>("trigger");
        QTest::addColumn<int>("type"); // of the trigger's event
        QTest::addColumn<bool>("selected");
        // Not by Tab, on which the box selects its text itself.
        const Trigger focus = [](QLineEdit* e) { e->setFocus(Qt::OtherFocusReason); };
        const Trigger release = [](QLineEdit* e) { QTest::mouseRelease(e, Qt::LeftButton); };
        const Trigger enter = [](QLineEdit* e) {
            QEvent ev(QEvent::Enter);
            QApplication::sendEvent(e, &ev);
        };
        const int in = QEvent::FocusIn, up = QEvent::MouseButtonRelease;
        // clang-format off
        QTest::newRow("0 on focus") << 5 << true << "0" << focus << in << true;
        QTest::newRow("0.00 on focus") << 5 << true << "0.00" << focus << in << true;
        QTest::newRow("0.0000 on focus") << 5 << true << "0.0000" << focus << in << true;
        QTest::newRow("0.00 on mouse release") << 5 << true << "0.00" << release << up << true;
        QTest::newRow("0.000 is no zero") << 5 << true << "0.000" << focus << in << false;
        QTest::newRow("a real amount") << 5 << true << "5.00" << focus << in << false;
        QTest::newRow("other events") << 5 << true << "0.00" << enter << int(QEvent::Enter) << false;
        QTest::newRow("not an amount box") << 5 << false << "0.00" << focus << in << false;
        QTest::newRow("action 4") << 4 << true << "0.00" << focus << in << false;
        QTest::newRow("action 6") << 6 << true << "0.00" << focus << in << false;
        // clang-format on
    }
    // The filter acts before the box sees the event, and never stops it.
    void selectZero()
    {
        QFETCH(int, action);
        QFETCH(bool, amountBox);
        QFETCH(QString, text);
        QFETCH(Trigger, trigger);
        QFETCH(int, type);
        QFETCH(bool, selected);
        QWidget page;
        auto* elsewhere = new QLineEdit(&page);
        DoubleLineEdit* amount = amountBox ? new DoubleLineEdit(&page) : nullptr;
        QLineEdit* box = amount ? amount : new QLineEdit(&page);
        showActive(page);
        elsewhere->setFocus();
        box->setText(text);
        Counter reached(box, QEvent::Type(type));
        ActionOnEvent filter(action, &page);
        amount ? filter.installOn(amount) : filter.installOn(box);
        trigger(box);
        QCOMPARE(reached.count, 1);
        QCOMPARE(box->hasSelectedText(), selected);
    }

    void cursorToStart_data()
    {
        QTest::addColumn<int>("action");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("toStart");
        QTest::newRow("empty box, action 1") << 1 << "" << true;
        QTest::newRow("box with text") << 1 << "123" << false;
        QTest::newRow("action 0") << 0 << "" << false;
        QTest::newRow("action 2") << 2 << "" << false;
    }
    // An empty masked box still places the cursor where it is clicked; the
    // queued call moves it to the start once the click has been handled.
    void cursorToStart()
    {
        QFETCH(int, action);
        QFETCH(QString, text);
        QFETCH(bool, toStart);
        QWidget page;
        auto* box = new QLineEdit(&page);
        box->setInputMask("99999999;_");
        box->setText(text);
        ActionOnEvent filter(action, &page);
        filter.installOn(box);
        showActive(page);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 4, box->height() / 2));
        const int clicked = box->cursorPosition();
        QVERIFY(clicked > 0);
        QCoreApplication::processEvents();
        QCOMPARE(box->cursorPosition(), toStart ? 0 : clicked);
    }

    // The queued call finds the box gone and does nothing.
    void boxGoneBeforeQueue()
    {
        ActionOnEvent filter(1, nullptr);
        auto* box = new QLineEdit;
        filter.installOn(box);
        QFocusEvent in(QEvent::FocusIn);
        QApplication::sendEvent(box, &in);
        delete box;
        QCoreApplication::processEvents();
    }
};

QTEST_MAIN(tst_Events)
#include "tst_events.moc"
