// The message dialogs, driven as a user would on the offscreen platform.
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

enum Dialog { GeneralInput, MsgWithLink, YesNo, Checkbox };
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

// Clicks Ok or Cancel, or sends Escape or Return to `other` (else to Cancel).
void press(Press how, QWidget* ok, QWidget* cancel, QWidget* other = nullptr)
{
    if (how == Ok || how == Cancel)
        QTest::mouseClick(how == Ok ? ok : cancel, Qt::LeftButton);
    else
        QTest::keyClick(other ? other : cancel, how == Escape ? Qt::Key_Escape : Qt::Key_Return);
}

} // namespace

Q_DECLARE_METATYPE(Dialog)
Q_DECLARE_METATYPE(Press)

class tst_Dialogs : public QObject
{
    Q_OBJECT
    QList<QUrl> opened; // by the stand-in for the default browser
public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
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
        opened.clear();
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open");
        shown->show();
        QVERIFY(QTest::qWaitForWindowExposed(shown.get()));
        const QPoint onText(line->contentsRect().left() + 3, line->height() / 2);
        QTest::mouseClick(line, Qt::LeftButton, {}, onText);
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(opened, QList<QUrl> { QUrl(s_url) });
    }

    // Answers by mouse or key; Return goes to Ok even from Cancel or the check box.
    // `given`: the text typed, the texts warned with, or the tick and whether there is
    // no place for the answer. `shown`: lblMsg1 to lblMsg3 of the warning.
    void answers_data()
    {
        QTest::addColumn<Dialog>("dialog"); // YesNo: warnYesNoMsg
        QTest::addColumn<Press>("how");
        QTest::addColumn<QStringList>("given");
        QTest::addColumn<QStringList>("shown");
        using L = QStringList;
        // clang-format off
        QTest::newRow("input, Ok") << GeneralInput << Ok << L{ "K1A 0A6" } << L{};
        QTest::newRow("input, Ok on an empty box") << GeneralInput << Ok << L{ "" } << L{};
        QTest::newRow("input, Cancel") << GeneralInput << Cancel << L{ "K1A 0A6" } << L{};
        QTest::newRow("input, Escape") << GeneralInput << Escape << L{ "K1A 0A6" } << L{};
        QTest::newRow("warn one text, Ok") << YesNo << Ok << L{ "first" } << L{ "Delete return:", "first", "" };
        QTest::newRow("warn two texts, Cancel") << YesNo << Cancel << L{ "first", "second" } << L{ "first", "second", "" };
        QTest::newRow("warn three texts, Escape") << YesNo << Escape << L{ "first", "second", "third" } << L{ "first", "second", "third" };
        QTest::newRow("warn, Return on Cancel") << YesNo << ReturnOnOther << L{ "first" } << L{ "Delete return:", "first", "" };
        QTest::newRow("check box, OK, ticked") << Checkbox << Ok << L{ "tick" } << L{};
        QTest::newRow("check box, OK, not ticked") << Checkbox << Ok << L{} << L{};
        QTest::newRow("check box, Cancel, ticked") << Checkbox << Cancel << L{ "tick" } << L{};
        QTest::newRow("check box, Cancel, not ticked") << Checkbox << Cancel << L{} << L{};
        QTest::newRow("check box, Return on it") << Checkbox << ReturnOnOther << L{ "tick" } << L{};
        QTest::newRow("check box, no place for the answer") << Checkbox << Ok << L{ "tick", "no place" } << L{};
        // clang-format on
    }
    void answers()
    {
        QFETCH(Dialog, dialog);
        QFETCH(Press, how);
        QFETCH(QStringList, given);
        QFETCH(QStringList, shown);
        const bool accepted = how == Ok || how == ReturnOnOther;
        const bool tick = given.contains("tick");
        QStringList seen;
        whenModal([&](QWidget* modal) {
            if (auto* box = qobject_cast<COneQOneChkboxDialog*>(modal)) {
                if (tick)
                    QTest::mouseClick(box->m_checkBox, Qt::LeftButton);
                return press(how, box->m_okButton, box->m_cancelButton, box->m_checkBox);
            }
            auto* edit = modal->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
            if (edit) {
                QTest::keyClicks(edit, given[0]);
            } else {
                seen << modal->windowTitle();
                for (const QString name : { "lblMsg1", "lblMsg2", "lblMsg3" })
                    seen << modal->findChild<QLabel*>(name)->text();
            }
            press(how, button(modal, QDialogButtonBox::Ok), button(modal, QDialogButtonBox::Cancel),
                  edit);
        });
        if (dialog == GeneralInput) {
            dlgGeneralInput input(QStringLiteral("Postal code"), nullptr);
            QSignalSpy finished(&input, &QDialog::finished);
            QString caller = QStringLiteral("before");
            QCOMPARE(input.runAndGetInput(caller), accepted);
            QCOMPARE(caller, accepted ? given[0] : QStringLiteral("before"));
            QString kept = QStringLiteral("unset");
            input.getInput(kept);
            QCOMPARE(kept, accepted ? given[0] : QString());
            QCOMPARE(finished.count(), 1);
            QCOMPARE(finished.at(0).at(0).toInt(),
                     accepted ? QDialog::Accepted : QDialog::Rejected);
        } else if (dialog == YesNo) {
            const QString title = QStringLiteral("Delete return");
            using D = CYesNoContinueDlg;
            QCOMPARE(given.size() == 1 ? D::warnYesNoMsg(nullptr, title, given[0])
                         : given.size() == 2
                         ? D::warnYesNoMsg(nullptr, title, given[0], given[1])
                         : D::warnYesNoMsg(nullptr, title, given[0], given[1], given[2]),
                     accepted);
            QCOMPARE(seen, QStringList(title) + shown);
        } else {
            const bool noPlace = given.contains("no place");
            bool checked = !tick; // so that every answer is a write
            QCOMPARE(COneQOneChkboxDialog::showDialog(
                         "Carry forward", "Copy last year's data?", "Do not ask again",
                         noPlace ? nullptr : &checked, QMessageBox::Question, nullptr),
                     accepted ? QDialog::Accepted : QDialog::Rejected);
            QCOMPARE(checked, noPlace ? !tick : tick);
        }
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
