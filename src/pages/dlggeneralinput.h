// dlgGeneralInput: asks the user for one line of text, with the caller's
// explanation around the box.
#pragma once

#include "libbedrock_export.h"

#include <QDialog>

namespace Ui {
class dlgGeneralInput;
}

/*
 * setMsg places the caller's texts by index: 0 the bold title above the rule,
 * 1 and 2 above the box, 3 below it; any other index is ignored. What the user
 * typed is kept only when Ok is pressed.
 */
class LIBBEDROCK_EXPORT dlgGeneralInput : public QDialog
{
    Q_OBJECT

public:
    // A non-empty title replaces the form's window title.
    dlgGeneralInput(QString const& title, QWidget* parent);
    ~dlgGeneralInput() override;

    void setMsg(int index, QString const& text);
    // The address is the link's visible text as well.
    void setMsgLink(QString const& url);
    // The text kept by the last Ok; empty before.
    void getInput(QString& text) const;
    // Runs the dialog. On Ok, `text` takes what was typed and the result is
    // true; otherwise `text` is left as it was.
    bool runAndGetInput(QString& text);

    Ui::dlgGeneralInput* m_ui;
    QString m_input;

public Q_SLOTS:
    // Connected by name when the form is set up.
    void on_buttonBox_accepted();
};
