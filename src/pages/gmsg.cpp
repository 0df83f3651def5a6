#include "gmsg.h"

void gMsgGetTitle(unsigned char kind, QString& title)
{
    // The year moves with each tax year's build.
    title = kind == 1 ? QStringLiteral("myLedgerWave 2025 for EFile")
                      : QStringLiteral("myLedgerWave 2025 for NetFile");
}

void gMsgInformation(unsigned char kind, QString const& text, QWidget* parent)
{
    QString title;
    gMsgGetTitle(kind, title);
    QMessageBox::information(parent, title, text, QMessageBox::Ok);
}

QMessageBox::StandardButton gMsgQuestion(unsigned char kind, QString const& text, QWidget* parent)
{
    QString title;
    gMsgGetTitle(kind, title);
    return QMessageBox::question(parent, title, text, QMessageBox::Yes | QMessageBox::No);
}
