// The message dialogs, driven as a user would on the offscreen platform.
#include "basedialog.h"
#include "coneqonechkboxdialog.h"
#include "cyesnocontinuedlg.h"
#include "dlggeneralinput.h"
#include "dlgmsgwithlink.h"
#include "gmsg.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>
#include <memory>

namespace {

enum Dialog { GeneralInput, MsgWithLink, YesNo };
enum Press { Ok, Cancel, Escape, ReturnOnOther };

const QString s_url = QStringLiteral("https://example.org/help");
const QString s_efile = QStringLiteral("myLedgerWave 2025 for EFile");
const QString s_netfile = QStringLiteral("myLedgerWave 2025 for NetFile");

std::unique_ptr<QDialog> make(Dialog which, const QString& title)
{
    if (which == GeneralInput)
        return std::make_unique<dlgGeneralInput>(title, nullptr);
    if (which == MsgWithLink)
        return std::make_unique<DlgMsgWithLink>(title, nullptr);
    return std::make_unique<CYesNoContinueDlg>(title, nullptr);
}

// Acts on the modal dialog once its event loop runs, as a person would once it
// appears. A dialog the action leaves open is closed, so the test fails instead of hanging.
void whenModal(std::function<void(QWidget*)> act)
{
    QTimer::singleShot(0, qApp, [act] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return whenModal(act);
        act(modal);
        if (modal->isVisible()) {
            modal->close();
            QFAIL("the dialog stayed open");
        }
    });
}

QPushButton* button(QWidget* dialog, QDialogButtonBox::StandardButton which)
{
    return dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(which);
}

// Clicks Ok or Cancel, or sends Escape or Return to `other`, the widget with the focus.
void press(Press how, QWidget* ok, QWidget* cancel, QWidget* other)
{
    if (how == Ok || how == Cancel)
        QTest::mouseClick(how == Ok ? ok : cancel, Qt::LeftButton);
    else
        QTest::keyClick(other, how == Escape ? Qt::Key_Escape : Qt::Key_Return);
}

// Stands in for the default browser.
class Browser : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

} // namespace

Q_DECLARE_METATYPE(Dialog)
Q_DECLARE_METATYPE(Press)

class tst_Dialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void messageBoxes_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("title");
        QTest::newRow("information, 1") << 1 << int(QMessageBox::Ok) << s_efile;
        QTest::newRow("information, 0") << 0 << int(QMessageBox::Ok) << s_netfile;
        QTest::newRow("information, 255") << 255 << int(QMessageBox::Ok) << s_netfile;
        QTest::newRow("question, Yes") << 1 << int(QMessageBox::Yes) << s_efile;
        QTest::newRow("question, No") << 2 << int(QMessageBox::No) << s_netfile;
    }
    void messageBoxes()
    {
        QFETCH(int, kind);
        QFETCH(int, answer);
        QFETCH(QString, title);
        const bool question = answer != QMessageBox::Ok;
        const auto kindByte = static_cast<unsigned char>(kind);
        QString given = QStringLiteral("old");
        gMsgGetTitle(kindByte, given);
        QCOMPARE(given, title);
        const QString text = QStringLiteral("Your return was saved.");
        QVariantList seen;
        whenModal([&](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            if (!box)
                return;
            seen << box->windowTitle() << box->text() << int(box->standardButtons())
                 << int(box->icon());
            QTest::mouseClick(box->button(QMessageBox::StandardButton(answer)), Qt::LeftButton);
        });
        if (question)
            QCOMPARE(int(gMsgQuestion(kindByte, text, nullptr)), answer);
        else
            gMsgInformation(kindByte, text, nullptr);
        QCOMPARE(
            seen,
            (QVariantList { title, text,
                            question ? QMessageBox::Yes | QMessageBox::No : int(QMessageBox::Ok),
                            int(question ? QMessageBox::Question : QMessageBox::Information) }));
    }

    // The dialogs as their forms build them; without a title a dialog keeps the
    // form's. The column lists the layout's widgets from the top ("" a spacer): all
    // have the form's point size, only the input's title is bold, the labels are
    // empty but the fixed bottom line, they wrap but links, and the rules are lines.
    void forms_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<QString>("objectName");
        QTest::addColumn<QSize>("size"); // not checked when invalid
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("buttonMaxHeight");
        QTest::addColumn<QStringList>("column");
        QTest::addColumn<int>("points");
        const int okCancel = QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
        using L = QStringList;
        // clang-format off
        QTest::newRow("general input") << GeneralInput << "dlgGeneralInput" << QSize() << okCancel << QWIDGETSIZE_MAX
            << L{ "lblTitle", "line", "lbl1", "lbl2", "lineEdit", "lbl3", "lblLink", "", "buttonBox" } << 12;
        QTest::newRow("message with link") << MsgWithLink << "DlgMsgWithLink" << QSize(604, 282) << int(QDialogButtonBox::Ok) << QWIDGETSIZE_MAX
            << L{ "lblMsg1", "lblMsg2", "lblLink", "", "buttonBox" } << 11;
        // The walk brings the form's 13-point first line to 14, and the buttons to 32 high.
        QTest::newRow("yes or cancel") << YesNo << "YesNoContinueDlg" << QSize(720, 420) << okCancel << 32
            << L{ "lblMsg1", "line_2", "lblMsg2", "lblMsg3", "lblMsg4", "", "line", "lblMsgBottom", "buttonBox" } << 14;
        // clang-format on
    }
    void forms()
    {
        QFETCH(Dialog, dialog);
        QFETCH(QString, objectName);
        QFETCH(QSize, size);
        QFETCH(int, buttons);
        QFETCH(int, buttonMaxHeight);
        QFETCH(QStringList, column);
        QFETCH(int, points);
        QCOMPARE(make(dialog, QString())->windowTitle(), QStringLiteral("Dialog"));
        const std::unique_ptr<QDialog> shown = make(dialog, QStringLiteral("Returns"));
        QCOMPARE(shown->objectName(), objectName);
        QCOMPARE(shown->windowTitle(), QStringLiteral("Returns"));
        if (size.isValid())
            QCOMPARE(shown->size(), size);
        auto* box = shown->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QCOMPARE(int(box->standardButtons()), buttons);
        for (QAbstractButton* each : box->buttons())
            QCOMPARE(each->maximumHeight(), buttonMaxHeight);
        const QString bottom = QStringLiteral(
            "Please confirm the message by clicking the 'OK' button to proceed; or click the "
            "'Cancel' button to abort the operation.");
        QStringList names;
        for (int i = 0; i < shown->layout()->count(); ++i) {
            QWidget* widget = shown->layout()->itemAt(i)->widget();
            const QString name = widget ? widget->objectName() : QString();
            names << name;
            if (!widget)
                continue;
            QCOMPARE(widget->font().pointSize(), points);
            QCOMPARE(widget->font().weight(), name == "lblTitle" ? QFont::Bold : QFont::Normal);
            if (auto* line = qobject_cast<QLabel*>(widget)) {
                QCOMPARE(line->wordWrap(), name != "lblLink");
                QCOMPARE(line->text(), name == "lblMsgBottom" ? bottom : QString());
            } else if (auto* frame = qobject_cast<QFrame*>(widget)) {
                QCOMPARE(frame->frameShape(), QFrame::HLine);
            }
        }
        QCOMPARE(names, column);
    }

    void generalInput_data()
    {
        QTest::addColumn<Press>("how");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("Ok") << Ok << "K1A 0A6" << true;
        QTest::newRow("Ok on an empty box") << Ok << "" << true;
        QTest::newRow("Cancel") << Cancel << "K1A 0A6" << false;
        QTest::newRow("Escape") << Escape << "K1A 0A6" << false;
    }
    void generalInput()
    {
        QFETCH(Press, how);
        QFETCH(QString, typed);
        QFETCH(bool, accepted);
        dlgGeneralInput dialog(QStringLiteral("Postal code"), nullptr);
        QSignalSpy finished(&dialog, &QDialog::finished);
        whenModal([&](QWidget* modal) {
            auto* box = modal->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
            QTest::keyClicks(box, typed);
            press(how, button(modal, QDialogButtonBox::Ok), button(modal, QDialogButtonBox::Cancel),
                  box);
        });
        QString caller = QStringLiteral("before");
        QCOMPARE(dialog.runAndGetInput(caller), accepted);
        QCOMPARE(caller, accepted ? typed : QStringLiteral("before"));
        QString kept = QStringLiteral("unset");
        dialog.getInput(kept);
        QCOMPARE(kept, accepted ? typed : QString());
        // Closed once, with the result the caller tests.
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished.at(0).at(0).toInt(), accepted ? QDialog::Accepted : QDialog::Rejected);
    }

    // setMsg and the links, by index: the label each reaches, the others left alone.
    // Plain text stays plain; the yes/no lines become selectable and open links
    // whatever they hold. A link is rich text, and a click opens it in the browser.
    void labels_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("target"); // empty: no label changes
        QTest::addColumn<QString>("link"); // the link's text; empty: setMsg(index, "after")
        // clang-format off
        QTest::newRow("input -1") << GeneralInput << -1 << "" << "";
        QTest::newRow("input 0") << GeneralInput << 0 << "lblTitle" << "";
        QTest::newRow("input 1") << GeneralInput << 1 << "lbl1" << "";
        QTest::newRow("input 2") << GeneralInput << 2 << "lbl2" << "";
        QTest::newRow("input 3") << GeneralInput << 3 << "lbl3" << "";
        QTest::newRow("input 4") << GeneralInput << 4 << "" << "";
        QTest::newRow("yes/no -1") << YesNo << -1 << "lblMsg1" << "";
        QTest::newRow("yes/no 1") << YesNo << 1 << "lblMsg1" << "";
        QTest::newRow("yes/no 2") << YesNo << 2 << "lblMsg2" << "";
        QTest::newRow("yes/no 3") << YesNo << 3 << "lblMsg3" << "";
        QTest::newRow("yes/no 4") << YesNo << 4 << "lblMsg4" << "";
        QTest::newRow("yes/no 5") << YesNo << 5 << "lblMsg1" << "";
        QTest::newRow("input link, address shown") << GeneralInput << 0 << "lblLink" << s_url;
        QTest::newRow("message link, address shown") << MsgWithLink << 0 << "lblLink" << s_url;
        QTest::newRow("message link, own text") << MsgWithLink << 0 << "lblLink" << "Help";
        QTest::newRow("yes/no line 2 link, address shown") << YesNo << 2 << "lblMsg2" << s_url;
        QTest::newRow("yes/no line 4 link, own text") << YesNo << 4 << "lblMsg4" << "Help";
        // clang-format on
    }
    void labels()
    {
        QFETCH(Dialog, dialog);
        QFETCH(int, index);
        QFETCH(QString, target);
        QFETCH(QString, link);
        const std::unique_ptr<QDialog> shown = make(dialog, QString());
        const QList<QLabel*> lines = shown->findChildren<QLabel*>(QRegularExpression("^lbl"));
        for (QLabel* line : lines)
            line->setText(QStringLiteral("before"));
        auto* input = qobject_cast<dlgGeneralInput*>(shown.get());
        auto* message = qobject_cast<DlgMsgWithLink*>(shown.get());
        auto* yesNo = qobject_cast<CYesNoContinueDlg*>(shown.get());
        if (link.isEmpty())
            yesNo ? yesNo->setMsg(index, "after", false) : input->setMsg(index, "after");
        else if (input)
            input->setMsgLink(s_url);
        else if (message)
            link == s_url ? message->setLink(s_url) : message->setLink2(s_url, link);
        else
            link == s_url ? yesNo->setMsg(index, s_url, true)
                          : yesNo->setLinkMsg(index, s_url, link);
        const QString after = link.isEmpty()
            ? QStringLiteral("after")
            : QStringLiteral("<a href=\"%1\">%2</a>").arg(s_url, link);
        for (QLabel* line : lines)
            QCOMPARE(line->text(), line->objectName() == target ? after : QStringLiteral("before"));
        if (!yesNo && link.isEmpty())
            return;
        auto* line = shown->findChild<QLabel*>(target);
        QCOMPARE(int(line->textInteractionFlags()), 13);
        QVERIFY(line->openExternalLinks());
        if (link.isEmpty())
            return;
        QCOMPARE(line->textFormat(), Qt::RichText);
        Browser browser;
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &browser, "open");
        shown->show();
        QVERIFY(QTest::qWaitForWindowExposed(shown.get()));
        const QPoint onText(line->contentsRect().left() + 3, line->height() / 2);
        QTest::mouseClick(line, Qt::LeftButton, {}, onText);
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(browser.opened, QList<QUrl> { QUrl(s_url) });
    }

    void warnYesNo_data()
    {
        QTest::addColumn<int>("texts");
        QTest::addColumn<Press>("how");
        QTest::addColumn<bool>("result");
        QTest::addColumn<QStringList>("lines"); // lblMsg1 to lblMsg3
        // clang-format off
        QTest::newRow("one text, Ok") << 1 << Ok << true << QStringList{ "Delete return:", "first", "" };
        QTest::newRow("two texts, Cancel") << 2 << Cancel << false << QStringList{ "first", "second", "" };
        QTest::newRow("three texts, Escape") << 3 << Escape << false << QStringList{ "first", "second", "third" };
        // Cancel has the focus, but Enter still goes to Ok.
        QTest::newRow("Return on Cancel") << 1 << ReturnOnOther << true << QStringList{ "Delete return:", "first", "" };
        // clang-format on
    }
    void warnYesNo()
    {
        QFETCH(int, texts);
        QFETCH(Press, how);
        QFETCH(bool, result);
        QFETCH(QStringList, lines);
        const QString title = QStringLiteral("Delete return");
        QStringList seen;
        whenModal([&](QWidget* modal) {
            seen << modal->windowTitle();
            for (const QString name : { "lblMsg1", "lblMsg2", "lblMsg3" })
                seen << modal->findChild<QLabel*>(name)->text();
            QPushButton* cancel = button(modal, QDialogButtonBox::Cancel);
            press(how, button(modal, QDialogButtonBox::Ok), cancel, cancel);
        });
        const bool answer = texts == 1 ? CYesNoContinueDlg::warnYesNoMsg(nullptr, title, "first")
            : texts == 2
            ? CYesNoContinueDlg::warnYesNoMsg(nullptr, title, "first", "second")
            : CYesNoContinueDlg::warnYesNoMsg(nullptr, title, "first", "second", "third");
        QCOMPARE(answer, result);
        QCOMPARE(seen, QStringList(title) + lines);
    }

    void checkboxAnswer_data()
    {
        QTest::addColumn<Press>("how");
        QTest::addColumn<bool>("tick");
        QTest::addColumn<bool>("noPlace"); // checked is null
        QTest::addColumn<int>("result");
        // clang-format off
        QTest::newRow("OK, ticked") << Ok << true << false << int(QDialog::Accepted);
        QTest::newRow("OK, not ticked") << Ok << false << false << int(QDialog::Accepted);
        QTest::newRow("Cancel, ticked") << Cancel << true << false << int(QDialog::Rejected);
        QTest::newRow("Cancel, not ticked") << Cancel << false << false << int(QDialog::Rejected);
        QTest::newRow("Return on the check box") << ReturnOnOther << true << false << int(QDialog::Accepted);
        QTest::newRow("no place for the answer") << Ok << true << true << int(QDialog::Accepted);
        // clang-format on
    }
    void checkboxAnswer()
    {
        QFETCH(Press, how);
        QFETCH(bool, tick);
        QFETCH(bool, noPlace);
        QFETCH(int, result);
        whenModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<COneQOneChkboxDialog*>(modal);
            if (!dialog)
                return;
            if (tick)
                QTest::mouseClick(dialog->m_checkBox, Qt::LeftButton);
            press(how, dialog->m_okButton, dialog->m_cancelButton, dialog->m_checkBox);
        });
        bool checked = !tick; // so that every answer is a write
        QCOMPARE(COneQOneChkboxDialog::showDialog("Carry forward", "Copy last year's data?",
                                                  "Do not ask again", noPlace ? nullptr : &checked,
                                                  QMessageBox::Question, nullptr),
                 result);
        QCOMPARE(checked, noPlace ? !tick : tick);
    }

    void checkboxForm_data()
    {
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("pixmap"); // a QStyle::StandardPixmap, -1 for none
        // clang-format off
        QTest::newRow("no icon") << int(QMessageBox::NoIcon) << -1;
        QTest::newRow("information") << int(QMessageBox::Information) << int(QStyle::SP_MessageBoxInformation);
        QTest::newRow("warning") << int(QMessageBox::Warning) << int(QStyle::SP_MessageBoxWarning);
        QTest::newRow("critical") << int(QMessageBox::Critical) << int(QStyle::SP_MessageBoxCritical);
        QTest::newRow("question") << int(QMessageBox::Question) << int(QStyle::SP_MessageBoxQuestion);
        // clang-format on
    }
    void checkboxForm()
    {
        QFETCH(int, icon);
        QFETCH(int, pixmap);
        COneQOneChkboxDialog dialog("Carry forward", "Copy last year's data?", "Do not ask again",
                                    QMessageBox::Icon(icon), nullptr);
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.minimumSize(), dialog.sizeHint());
        QCOMPARE(dialog.maximumSize(), dialog.sizeHint());
        QVERIFY(dialog.m_okButton->isDefault());
        QCOMPARE(dialog.m_iconLabel->minimumSize(), dialog.m_iconLabel->maximumSize());
        const QPixmap shown = dialog.m_iconLabel->pixmap();
        QCOMPARE(shown.isNull(), pixmap < 0);
        if (pixmap >= 0) {
            const QIcon standard = dialog.style()->standardIcon(QStyle::StandardPixmap(pixmap));
            QCOMPARE(shown.toImage(), standard.pixmap(shown.size()).toImage());
        }
    }
};

QTEST_MAIN(tst_Dialogs)
#include "tst_dialogs.moc"
