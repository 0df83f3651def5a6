#include "dlggeneralinput.h"

#include "pages_p.h"
#include "ui_dlggeneralinput.h"

#include <iterator>

dlgGeneralInput::dlgGeneralInput(QString const& title, QWidget* parent)
    : QDialog(parent)
    , m_ui(new Ui::dlgGeneralInput)
{
    m_ui->setupUi(this);
    if (!title.isEmpty())
        setWindowTitle(title);
}

dlgGeneralInput::~dlgGeneralInput()
{
    delete m_ui;
}

void dlgGeneralInput::setMsg(int index, QString const& text)
{
    QLabel* const labels[] = { m_ui->lblTitle, m_ui->lbl1, m_ui->lbl2, m_ui->lbl3 };
    if (index < 0 || index >= int(std::size(labels)))
        return;
    labels[index]->setText(text);
}

void dlgGeneralInput::setMsgLink(QString const& url)
{
    Bedrock::setLabelLink(m_ui->lblLink, url, url);
}

void dlgGeneralInput::getInput(QString& text) const
{
    text = m_input;
}

void dlgGeneralInput::on_buttonBox_accepted()
{
    m_input = m_ui->lineEdit->text();
    // The form leaves accepted() to this slot alone, so the dialog closes once.
    accept();
}

bool dlgGeneralInput::runAndGetInput(QString& text)
{
    if (exec() != QDialog::Accepted)
        return false;
    text = m_input;
    return true;
}
