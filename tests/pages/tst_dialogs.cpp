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

QLabel* label(QWidget* dialog, const QString& name)
{
    return dialog->findChild<QLabel*>(name);
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
    void afterCreateUI_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("windowTitle");
        QTest::newRow("a title replaces the form's") << "Returns"
                                                     << "Returns";
        QTest::newRow("no title keeps the form's") << ""
                                                   << "Dialog";
    }
    void afterCreateUI()
    {
        QFETCH(QString, title);
        QFETCH(QString, windowTitle);
        BaseDialog dialog(title, nullptr);
        dialog.setWindowTitle(QStringLiteral("Dialog"));
        auto* text = new QLabel(QStringLiteral("Income"), &dialog);
        text->setFont(QFont(text->font().family(), 9));
        dialog.afterCreateUI();
        QCOMPARE(dialog.windowTitle(), windowTitle);
        QCOMPARE(text->font().pointSize(), 14);
    }

    void productTitle_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("title");
        QTest::newRow("0") << 0 << s_netfile;
        QTest::newRow("1") << 1 << s_efile;
        QTest::newRow("2") << 2 << s_netfile;
        QTest::newRow("255") << 255 << s_netfile;
    }
    void productTitle()
    {
        QFETCH(int, kind);
        QFETCH(QString, title);
        QString given = QStringLiteral("old");
        gMsgGetTitle(static_cast<unsigned char>(kind), given);
        QCOMPARE(given, title);
    }

    void messageBoxes_data()
    {
        QTest::addColumn<bool>("question");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("title");
        QTest::newRow("information, 1") << false << 1 << int(QMessageBox::Ok) << s_efile;
        QTest::newRow("information, 0") << false << 0 << int(QMessageBox::Ok) << s_netfile;
        QTest::newRow("question, Yes") << true << 1 << int(QMessageBox::Yes) << s_efile;
        QTest::newRow("question, No") << true << 2 << int(QMessageBox::No) << s_netfile;
    }
    void messageBoxes()
    {
        QFETCH(bool, question);
        QFETCH(int, kind);
        QFETCH(int, answer);
        QFETCH(QString, title);
        const QString text = QStringLiteral("Your return was saved.");
        QStringList seen;
        int buttons = 0, icon = -1;
        whenModal([&](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            if (!box)
                return;
            seen << box->windowTitle() << box->text();
            buttons = int(box->standardButtons());
            icon = int(box->icon());
            QTest::mouseClick(box->button(QMessageBox::StandardButton(answer)), Qt::LeftButton);
        });
        const auto kindByte = static_cast<unsigned char>(kind);
        if (question)
            QCOMPARE(int(gMsgQuestion(kindByte, text, nullptr)), answer);
        else
            gMsgInformation(kindByte, text, nullptr);
        QCOMPARE(seen, QStringList({ title, text }));
        QCOMPARE(buttons, question ? QMessageBox::Yes | QMessageBox::No : int(QMessageBox::Ok));
        QCOMPARE(icon, int(question ? QMessageBox::Question : QMessageBox::Information));
    }

    void dialogs_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("objectName");
        QTest::addColumn<QString>("windowTitle");
        QTest::addColumn<QSize>("size"); // not checked when invalid
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("buttonMaxHeight");
        const int okCancel = QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
        // clang-format off
        QTest::newRow("general input") << GeneralInput << "Postal code" << "dlgGeneralInput"
            << "Postal code" << QSize() << okCancel << QWIDGETSIZE_MAX;
        QTest::newRow("general input, no title") << GeneralInput << "" << "dlgGeneralInput"
            << "Dialog" << QSize() << okCancel << QWIDGETSIZE_MAX;
        QTest::newRow("message with link") << MsgWithLink << "Update" << "DlgMsgWithLink"
            << "Update" << QSize(604, 282) << int(QDialogButtonBox::Ok) << QWIDGETSIZE_MAX;
        QTest::newRow("yes or cancel") << YesNo << "Delete return" << "YesNoContinueDlg"
            << "Delete return" << QSize(720, 420) << okCancel << 32;
        QTest::newRow("yes or cancel, no title") << YesNo << "" << "YesNoContinueDlg"
            << "Dialog" << QSize(720, 420) << okCancel << 32;
        // clang-format on
    }
    void dialogs()
    {
        QFETCH(Dialog, dialog);
        QFETCH(QString, title);
        QFETCH(QString, objectName);
        QFETCH(QString, windowTitle);
        QFETCH(QSize, size);
        QFETCH(int, buttons);
        QFETCH(int, buttonMaxHeight);
        const std::unique_ptr<QDialog> shown = make(dialog, title);
        QCOMPARE(shown->objectName(), objectName);
        QCOMPARE(shown->windowTitle(), windowTitle);
        if (size.isValid())
            QCOMPARE(shown->size(), size);
        auto* box = shown->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QCOMPARE(int(box->standardButtons()), buttons);
        for (QAbstractButton* each : box->buttons())
            QCOMPARE(each->maximumHeight(), buttonMaxHeight);
    }

    void form_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("follows"); // the widget above it in the column
        QTest::addColumn<int>("points");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<QString>("text"); // labels only; they all wrap but links
        const QString bottom = QStringLiteral(
            "Please confirm the message by clicking the 'OK' button to proceed; or click the "
            "'Cancel' button to abort the operation.");
        // clang-format off
        QTest::newRow("input title") << GeneralInput << "lblTitle" << "" << 12 << true << "";
        QTest::newRow("input rule") << GeneralInput << "line" << "lblTitle" << 12 << false << "";
        QTest::newRow("input line 1") << GeneralInput << "lbl1" << "line" << 12 << false << "";
        QTest::newRow("input box") << GeneralInput << "lineEdit" << "lbl2" << 12 << false << "";
        QTest::newRow("input line 3") << GeneralInput << "lbl3" << "lineEdit" << 12 << false << "";
        QTest::newRow("input link") << GeneralInput << "lblLink" << "lbl3" << 12 << false << "";
        QTest::newRow("message 1") << MsgWithLink << "lblMsg1" << "" << 11 << false << "";
        QTest::newRow("message 2") << MsgWithLink << "lblMsg2" << "lblMsg1" << 11 << false << "";
        QTest::newRow("message link") << MsgWithLink << "lblLink" << "lblMsg2" << 11 << false << "";
        // The walk brings the form's 13-point first line to 14.
        QTest::newRow("yes/no line 1") << YesNo << "lblMsg1" << "" << 14 << false << "";
        QTest::newRow("yes/no top rule") << YesNo << "line_2" << "lblMsg1" << 14 << false << "";
        QTest::newRow("yes/no line 2") << YesNo << "lblMsg2" << "line_2" << 14 << false << "";
        QTest::newRow("yes/no line 4") << YesNo << "lblMsg4" << "lblMsg3" << 14 << false << "";
        QTest::newRow("yes/no bottom") << YesNo << "lblMsgBottom" << "line" << 14 << false << bottom;
        // clang-format on
    }
    void form()
    {
        QFETCH(Dialog, dialog);
        QFETCH(QString, name);
        QFETCH(QString, follows);
        QFETCH(int, points);
        QFETCH(bool, bold);
        QFETCH(QString, text);
        const std::unique_ptr<QDialog> shown = make(dialog, QString());
        auto* widget = shown->findChild<QWidget*>(name);
        QVERIFY(widget);
        QCOMPARE(widget->font().pointSize(), points);
        QCOMPARE(widget->font().weight(), bold ? QFont::Bold : QFont::Normal);
        auto* frame = qobject_cast<QFrame*>(widget);
        if (auto* line = qobject_cast<QLabel*>(widget)) {
            QCOMPARE(line->wordWrap(), name != QLatin1String("lblLink"));
            QCOMPARE(line->text(), text);
        } else if (frame) {
            QCOMPARE(frame->frameShape(), QFrame::HLine);
        }
        auto* column = qobject_cast<QBoxLayout*>(shown->layout());
        const int at = column->indexOf(widget);
        QLayoutItem* above = at > 0 ? column->itemAt(at - 1) : nullptr;
        QCOMPARE(above && above->widget() ? above->widget()->objectName() : QString(), follows);
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

    void messageIndex_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("target"); // empty: no label changes
        QTest::newRow("input -1") << GeneralInput << -1 << "";
        QTest::newRow("input 0") << GeneralInput << 0 << "lblTitle";
        QTest::newRow("input 1") << GeneralInput << 1 << "lbl1";
        QTest::newRow("input 2") << GeneralInput << 2 << "lbl2";
        QTest::newRow("input 3") << GeneralInput << 3 << "lbl3";
        QTest::newRow("input 4") << GeneralInput << 4 << "";
        QTest::newRow("input 7") << GeneralInput << 7 << "";
        QTest::newRow("yes/no -1") << YesNo << -1 << "lblMsg1";
        QTest::newRow("yes/no 1") << YesNo << 1 << "lblMsg1";
        QTest::newRow("yes/no 2") << YesNo << 2 << "lblMsg2";
        QTest::newRow("yes/no 3") << YesNo << 3 << "lblMsg3";
        QTest::newRow("yes/no 4") << YesNo << 4 << "lblMsg4";
        QTest::newRow("yes/no 5") << YesNo << 5 << "lblMsg1";
        QTest::newRow("yes/no 9") << YesNo << 9 << "lblMsg1";
    }
    // Plain text; the yes/no lines become selectable and open links whatever they hold.
    void messageIndex()
    {
        QFETCH(Dialog, dialog);
        QFETCH(int, index);
        QFETCH(QString, target);
        const std::unique_ptr<QDialog> shown = make(dialog, QString());
        const QStringList names = dialog == YesNo
            ? QStringList { "lblMsg1", "lblMsg2", "lblMsg3", "lblMsg4" }
            : QStringList { "lblTitle", "lbl1", "lbl2", "lbl3", "lblLink" };
        for (const QString& name : names)
            label(shown.get(), name)->setText(QStringLiteral("before"));
        if (auto* yesNo = qobject_cast<CYesNoContinueDlg*>(shown.get()))
            yesNo->setMsg(index, QStringLiteral("after"), false);
        else
            static_cast<dlgGeneralInput*>(shown.get())->setMsg(index, QStringLiteral("after"));
        for (const QString& name : names)
            QCOMPARE(label(shown.get(), name)->text(),
                     QString(name == target ? "after" : "before"));
        if (dialog == YesNo) {
            QCOMPARE(int(label(shown.get(), target)->textInteractionFlags()), 13);
            QVERIFY(label(shown.get(), target)->openExternalLinks());
        }
    }

    void warnYesNo_data()
    {
        QTest::addColumn<int>("texts");
        QTest::addColumn<Press>("how");
        QTest::addColumn<bool>("result");
        QTest::addColumn<QStringList>("lines"); // lblMsg1 to lblMsg3
        // clang-format off
        QTest::newRow("one text, Ok") << 1 << Ok << true
            << QStringList{ "Delete return:", "first", "" };
        QTest::newRow("two texts, Cancel") << 2 << Cancel << false
            << QStringList{ "first", "second", "" };
        QTest::newRow("three texts, Escape") << 3 << Escape << false
            << QStringList{ "first", "second", "third" };
        // Cancel has the focus, but Enter still goes to Ok.
        QTest::newRow("Return on Cancel") << 1 << ReturnOnOther << true
            << QStringList{ "Delete return:", "first", "" };
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
                seen << label(modal, name)->text();
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

    void links_data()
    {
        QTest::addColumn<Dialog>("dialog");
        QTest::addColumn<int>("index"); // of the yes/no line
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("input, address shown") << GeneralInput << 0 << "lblLink" << s_url;
        QTest::newRow("message, address shown") << MsgWithLink << 0 << "lblLink" << s_url;
        QTest::newRow("message, own text") << MsgWithLink << 0 << "lblLink" << "Help";
        QTest::newRow("yes/no line 2, address shown") << YesNo << 2 << "lblMsg2" << s_url;
        QTest::newRow("yes/no line 4, own text") << YesNo << 4 << "lblMsg4" << "Help";
        QTest::newRow("yes/no line 5, own text") << YesNo << 5 << "lblMsg1" << "Help";
        // clang-format on
    }
    // Rich text, selectable, and a click opens the address in the browser.
    void links()
    {
        QFETCH(Dialog, dialog);
        QFETCH(int, index);
        QFETCH(QString, target);
        QFETCH(QString, text);
        const std::unique_ptr<QDialog> shown = make(dialog, QString());
        if (auto* input = qobject_cast<dlgGeneralInput*>(shown.get()))
            input->setMsgLink(s_url);
        else if (auto* message = qobject_cast<DlgMsgWithLink*>(shown.get()))
            text == s_url ? message->setLink(s_url) : message->setLink2(s_url, text);
        else if (auto* yesNo = qobject_cast<CYesNoContinueDlg*>(shown.get()))
            text == s_url ? yesNo->setMsg(index, s_url, true)
                          : yesNo->setLinkMsg(index, s_url, text);
        QLabel* line = label(shown.get(), target);
        QCOMPARE(line->text(), QStringLiteral("<a href=\"%1\">%2</a>").arg(s_url, text));
        QCOMPARE(line->textFormat(), Qt::RichText);
        QCOMPARE(int(line->textInteractionFlags()), 13);

        Browser browser;
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &browser, "open");
        shown->show();
        QVERIFY(QTest::qWaitForWindowExposed(shown.get()));
        const QPoint onText(line->contentsRect().left() + 3, line->height() / 2);
        QTest::mouseClick(line, Qt::LeftButton, {}, onText);
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(browser.opened, QList<QUrl> { QUrl(s_url) });
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
