// COneQOneChkboxDialog: one question with one check box, such as "do not ask
// again", answered with OK or Cancel.
#pragma once

#include "libbedrock_export.h"

#include <QDialog>
#include <QMessageBox>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/*
 * The message box's standard icon on the left (none for QMessageBox::NoIcon),
 * the wrapped message beside it, the check box below, and OK (the default) and
 * Cancel at the bottom right. The dialog is modal and keeps the size its
 * contents ask for.
 */
class LIBBEDROCK_EXPORT COneQOneChkboxDialog : public QDialog
{
    Q_OBJECT

public:
    COneQOneChkboxDialog(QString const& title, QString const& message, QString const& checkText,
                         QMessageBox::Icon icon, QWidget* parent);

    bool isCheckboxChecked() const;

    // Runs the dialog and returns the result of exec(). The check box's state
    // goes to *checked (when not null) whichever button closed it.
    static int showDialog(QString const& title, QString const& message, QString const& checkText,
                          bool* checked, QMessageBox::Icon icon, QWidget* parent);

    QString m_title;
    QString m_message;
    QString m_checkText;
    QMessageBox::Icon m_icon;

    QLabel* m_iconLabel;
    QLabel* m_messageLabel;
    QCheckBox* m_checkBox;
    QPushButton* m_okButton;
    QPushButton* m_cancelButton;
    QVBoxLayout* m_mainLayout;
    QHBoxLayout* m_messageLayout;
    QHBoxLayout* m_buttonLayout;

public Q_SLOTS:
    void accept() override;
    void reject() override;

private:
    void setupUI();
    void setupLayout();
};
