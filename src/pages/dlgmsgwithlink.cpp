#include "dlgmsgwithlink.h"

#include "pages_p.h"
#include "ui_dlgmsgwithlink.h"

DlgMsgWithLink::DlgMsgWithLink(QString const& title, QWidget* parent)
    : QDialog(parent)
    , m_ui(new Ui::DlgMsgWithLink)
{
    m_ui->setupUi(this);
    if (!title.isEmpty())
        setWindowTitle(title);
}

DlgMsgWithLink::~DlgMsgWithLink()
{
    delete m_ui;
}

void DlgMsgWithLink::setMsg1(QString const& text)
{
    m_ui->lblMsg1->setText(text);
}

void DlgMsgWithLink::setMsg2(QString const& text)
{
    m_ui->lblMsg2->setText(text);
}

void DlgMsgWithLink::setLink(QString const& url)
{
    Bedrock::setLabelLink(m_ui->lblLink, url, url);
}

void DlgMsgWithLink::setLink2(QString const& url, QString const& text)
{
    Bedrock::setLabelLink(m_ui->lblLink, url, text);
}
