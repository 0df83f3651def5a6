// One amount typed into the sample window, carried through a worksheet, saved,
// reopened and filed on loopback. The steps run in order on one return.
#include <QtTest>

#ifndef BEDROCK_SAMPLE_GUI

class tst_Road : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QSKIP("the examples are not built"); }
};

#else

#include "samplewindow.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cmath>

namespace {

const CString Key("a password of the test");

// Runs `act` on the modal dialog once it is up and active.
void whenModal(std::function<void(QWidget*)> act)
{
    auto* timer = new QTimer;
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, [timer, act] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            timer->stop();
            timer->deleteLater();
            QApplication::setActiveWindow(modal);
            if (QTest::qWaitForWindowActive(modal))
                act(modal);
            else
                modal->close();
        }
    });
    timer->start();
}

void clickTab(QTabBar* bar, const QString& text)
{
    for (int i = 0; i < bar->count(); ++i)
        if (bar->tabText(i) == text)
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
}

// Replaces what a box shows by `text`, then leaves it by Tab.
void typeInto(QLineEdit* box, const QString& text)
{
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Tab);
}

// What each box (fld_*) and dependant line (dep_*) of a window shows, by name.
QMap<QString, QString> shown(QWidget* window)
{
    QMap<QString, QString> all;
    for (QWidget* w : window->findChildren<QWidget*>()) {
        const QString name = w->objectName();
        const char* what = qobject_cast<QComboBox*>(w) ? "currentText"
            : qobject_cast<QAbstractButton*>(w)        ? "checked"
            : qobject_cast<QPlainTextEdit*>(w)         ? "plainText"
                                                       : "text";
        if (name.startsWith(QLatin1String("fld_")) || name.startsWith(QLatin1String("dep_")))
            all[name] = w->property(what).toString();
    }
    return all;
}

} // namespace

class tst_Road : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<SampleWindow> m_window;
    std::unique_ptr<SampleWindow> m_reopened;

    template<typename W = QLineEdit> W* box(const char* name)
    {
        return m_window->findChild<W*>(QString::fromLatin1(name));
    }

private Q_SLOTS:
    void initTestCase()
    {
        CStringField::setLargeSizeSerializeOption(0x101F4, 1000);
        QVERIFY(m_dir.isValid());
        m_window = std::make_unique<SampleWindow>();
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void typedAmountReachesTheTotal()
    {
        clickTab(m_window->tabs()->tabBar(), QStringLiteral("Income"));
        auto* employment = box("fld_10100");
        QSignalSpy calc(qobject_cast<BaseTaxPage*>(employment->parentWidget()),
                        &BaseTaxPage::signalCalc);
        typeInto(employment, QStringLiteral("52344.5"));
        QCOMPARE(m_window->returnData().t1.fld_10100.m_value, 52344.5);
        QCOMPARE(calc.count(), 1);
        // Plus two interest payers and other income.
        QCOMPARE(box("fld_15000")->text(),
                 QString::number(52344.50 + 1000.15 + 250.25 + 800.00, 'f', 2));
    }

    void amountFromAnotherFormShowsThatForm()
    {
        QTest::mouseClick(box("fld_12100"), Qt::LeftButton);
        QTRY_VERIFY(m_window->tabs()->currentWidget()->isAncestorOf(box("fld_Interest1")));
    }

    void dependantWorksheetFeedsTheForm()
    {
        clickTab(m_window->tabs()->tabBar(), QStringLiteral("Credits"));
        whenModal([](QWidget* dialog) {
            auto* tabs = dialog->findChild<QTabWidget*>(QStringLiteral("tabWgt1"));
            clickTab(tabs->tabBar(), QStringLiteral("Marc"));
            QWidget* sheet = tabs->currentWidget();
            auto* overwrite = sheet->findChild<QCheckBox*>(QStringLiteral("fld_bOverwrite"));
            QTest::mouseClick(overwrite, Qt::LeftButton, {}, QPoint(8, overwrite->height() / 2));
            typeInto(sheet->findChild<QLineEdit*>(QStringLiteral("fld_AmountClaim")),
                     QStringLiteral("2000"));
            QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                              Qt::LeftButton);
        });
        QTest::mouseClick(box("fld_58400"), Qt::LeftButton);
        // Gaston's claim (base less his net income), Marc's as typed over it.
        const double caregiver = 8601.00 - 5200.00 + 2000.00;
        QTRY_COMPARE(m_window->returnData().t1.fld_58400.m_value, caregiver);
        QCOMPARE(box("fld_58400")->text(), QString::number(caregiver, 'f', 2));
    }

    // fld_58400 holds Marc's typed claim only if his worksheet came back.
    void savedReturnOpensAsItWasShown()
    {
        const QMap<QString, QString> before = shown(m_window.get());
        QVERIFY(before.contains("fld_58400") && before.contains("dep_3"));
        const QString path = m_dir.filePath(QStringLiteral("road.ret"));
        QVERIFY(m_window->saveReturn(path, Key));

        m_reopened = std::make_unique<SampleWindow>(false);
        QVERIFY(m_reopened->openReturn(path, Key));
        QCOMPARE(shown(m_reopened.get()), before);
    }

    void filedDocumentCarriesTheTypedAmount()
    {
        QVERIFY(m_reopened);
        // Keeps the body of one post, answering once the announced length is in.
        QByteArray body;
        QServerSocket listener(0);
        connect(&listener, &QServerSocket::dataReceived, this,
                [&body](QTcpSocket* socket, const QByteArray& data) {
                    const qsizetype head = data.indexOf("\r\n\r\n");
                    const QRegularExpression length(QStringLiteral("content-length:\\s*(\\d+)"),
                                                    QRegularExpression::CaseInsensitiveOption);
                    const auto found = length.match(QString::fromLatin1(data.left(head)));
                    if (head < 0 || !body.isEmpty() || !found.hasMatch()
                        || data.size() - head - 4 < found.captured(1).toLongLong())
                        return;
                    body = data.mid(head + 4);
                    socket->write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n"
                                  "Connection: close\r\n\r\nok");
                    socket->disconnectFromHost();
                });
        QVERIFY(m_reopened->fileReturn(
            "http://127.0.0.1:" + QByteArray::number(listener.serverPort()) + "/file"));
        QMap<int, QString> lines;
        QXmlStreamReader xml(body);
        for (int code = 0; xml.readNext() != QXmlStreamReader::Invalid && !xml.atEnd();) {
            if (xml.qualifiedName() == QLatin1String("comm:FieldCode") && xml.isStartElement())
                code = xml.readElementText().toInt();
            else if (xml.qualifiedName() == QLatin1String("comm:FieldValue")
                     && xml.isStartElement())
                lines[code] = xml.readElementText();
        }
        QVERIFY(!xml.hasError());
        // Whole dollars, half a dollar rounded away from zero.
        QCOMPARE(lines.value(10100), QString::number(qint64(std::floor(52344.50 + 0.5))));
    }
};

#endif

QTEST_MAIN(tst_Road)
#include "tst_road.moc"
