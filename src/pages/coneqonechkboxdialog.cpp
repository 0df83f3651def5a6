#include "coneqonechkboxdialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

bool standardPixmapOf(QMessageBox::Icon icon, QStyle::StandardPixmap& pixmap)
{
    switch (icon) {
    case QMessageBox::Information:
        pixmap = QStyle::SP_MessageBoxInformation;
        return true;
    case QMessageBox::Warning:
        pixmap = QStyle::SP_MessageBoxWarning;
        return true;
    case QMessageBox::Critical:
        pixmap = QStyle::SP_MessageBoxCritical;
        return true;
    case QMessageBox::Question:
        pixmap = QStyle::SP_MessageBoxQuestion;
        return true;
    case QMessageBox::NoIcon:
        break;
    }
    return false;
}

} // namespace

COneQOneChkboxDialog::COneQOneChkboxDialog(QString const& title, QString const& message,
                                           QString const& checkText, QMessageBox::Icon icon,
                                           QWidget* parent)
    : QDialog(parent)
    , m_title(title)
    , m_message(message)
    , m_checkText(checkText)
    , m_icon(icon)
    , m_iconLabel(nullptr)
    , m_messageLabel(nullptr)
    , m_checkBox(nullptr)
    , m_okButton(nullptr)
    , m_cancelButton(nullptr)
    , m_mainLayout(nullptr)
    , m_messageLayout(nullptr)
    , m_buttonLayout(nullptr)
{
    setupUI();
    setupLayout();
}

bool COneQOneChkboxDialog::isCheckboxChecked() const
{
    return m_checkBox->isChecked();
}

void COneQOneChkboxDialog::accept()
{
    QDialog::accept();
}

void COneQOneChkboxDialog::reject()
{
    QDialog::reject();
}

int COneQOneChkboxDialog::showDialog(QString const& title, QString const& message,
                                     QString const& checkText, bool* checked,
                                     QMessageBox::Icon icon, QWidget* parent)
{
    COneQOneChkboxDialog dialog(title, message, checkText, icon, parent);
    const int result = dialog.exec();
    if (checked)
        *checked = dialog.isCheckboxChecked();
    return result;
}

void COneQOneChkboxDialog::setupUI()
{
    setWindowTitle(m_title);
    setModal(true);

    // The size a message box gives its icon, so both kinds of question look alike.
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_iconLabel = new QLabel(this);
    m_iconLabel->setFixedSize(iconSize, iconSize);
    QStyle::StandardPixmap pixmap;
    if (standardPixmapOf(m_icon, pixmap))
        m_iconLabel->setPixmap(style()->standardIcon(pixmap, nullptr, this).pixmap(iconSize));

    m_messageLabel = new QLabel(m_message, this);
    m_messageLabel->setWordWrap(true);

    m_checkBox = new QCheckBox(m_checkText, this);

    m_okButton = new QPushButton(tr("OK"), this);
    m_okButton->setDefault(true);
    m_cancelButton = new QPushButton(tr("Cancel"), this);
    connect(m_okButton, &QPushButton::clicked, this, &COneQOneChkboxDialog::accept);
    connect(m_cancelButton, &QPushButton::clicked, this, &COneQOneChkboxDialog::reject);
}

void COneQOneChkboxDialog::setupLayout()
{
    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setSpacing(15);
    m_mainLayout->setContentsMargins(20, 20, 20, 20);

    m_messageLayout = new QHBoxLayout;
    m_messageLayout->addWidget(m_iconLabel, 0, Qt::AlignTop);
    m_messageLayout->addWidget(m_messageLabel, 1);
    m_mainLayout->addLayout(m_messageLayout);

    m_mainLayout->addWidget(m_checkBox);

    m_buttonLayout = new QHBoxLayout;
    m_buttonLayout->addStretch();
    m_buttonLayout->addWidget(m_okButton);
    m_buttonLayout->addWidget(m_cancelButton);
    m_mainLayout->addLayout(m_buttonLayout);

    setFixedSize(sizeHint());
}
