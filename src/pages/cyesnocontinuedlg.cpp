#include "cyesnocontinuedlg.h"

#include "pages_p.h"
#include "ui_cyesnocontinuedlg.h"

#include <QPushButton>

CYesNoContinueDlg::CYesNoContinueDlg(QString const& title, QWidget* parent)
    : BaseDialog(title, parent)
    , m_ui(new Ui::YesNoContinueDlg)
{
    m_ui->setupUi(this);
    afterCreateUI();
    // Without auto-default a focused Cancel does not take over Enter.
    const QList<QAbstractButton*> buttons = m_ui->buttonBox->buttons();
    for (QAbstractButton* button : buttons) {
        if (auto* push = qobject_cast<QPushButton*>(button))
            push->setAutoDefault(false);
    }
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    resize(720, 420);
}

CYesNoContinueDlg::~CYesNoContinueDlg()
{
    delete m_ui;
}

QLabel* CYesNoContinueDlg::messageLabel(int index) const
{
    switch (index) {
    case 2:
        return m_ui->lblMsg2;
    case 3:
        return m_ui->lblMsg3;
    case 4:
        return m_ui->lblMsg4;
    default:
        return m_ui->lblMsg1;
    }
}

void CYesNoContinueDlg::setMsg(int index, QString const& text, bool asLink)
{
    QLabel* label = messageLabel(index);
    if (asLink) {
        Bedrock::setLabelLink(label, text, text);
    } else {
        label->setText(text);
        Bedrock::makeLabelLinkable(label);
    }
}

void CYesNoContinueDlg::setLinkMsg(int index, QString const& url, QString const& text)
{
    Bedrock::setLabelLink(messageLabel(index), url, text);
}

bool CYesNoContinueDlg::warnYesNoMsg(QWidget* parent, QString const& title, QString const& text)
{
    CYesNoContinueDlg dialog(title, parent);
    // Through tr() because French puts a space before the colon.
    dialog.setMsg(1, tr("%1:").arg(title), false);
    dialog.setMsg(2, text, false);
    return dialog.exec() == QDialog::Accepted;
}

bool CYesNoContinueDlg::warnYesNoMsg(QWidget* parent, QString const& title, QString const& text1,
                                     QString const& text2)
{
    CYesNoContinueDlg dialog(title, parent);
    dialog.setMsg(1, text1, false);
    dialog.setMsg(2, text2, false);
    return dialog.exec() == QDialog::Accepted;
}

bool CYesNoContinueDlg::warnYesNoMsg(QWidget* parent, QString const& title, QString const& text1,
                                     QString const& text2, QString const& text3)
{
    CYesNoContinueDlg dialog(title, parent);
    dialog.setMsg(1, text1, false);
    dialog.setMsg(2, text2, false);
    dialog.setMsg(3, text3, false);
    return dialog.exec() == QDialog::Accepted;
}
