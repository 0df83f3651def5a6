// CYesNoContinueDlg: a warning the user confirms with OK or aborts with Cancel.
#pragma once

#include "basedialog.h"
#include "libbedrock_export.h"

class QLabel;

namespace Ui {
class YesNoContinueDlg;
}

/*
 * Four message lines above a fixed request to confirm or abort. Ok is the
 * default button, and Enter presses it even when Cancel has the focus. Every
 * message line can be selected, and its links open in the default browser.
 */
class LIBBEDROCK_EXPORT CYesNoContinueDlg : public BaseDialog
{
    Q_OBJECT

public:
    CYesNoContinueDlg(QString const& title, QWidget* parent);
    ~CYesNoContinueDlg() override;

    // Index 2, 3 or 4 names that message line; any other index the first. With
    // asLink the text becomes a link to itself.
    void setMsg(int index, QString const& text, bool asLink);
    // As setMsg, with the link's address and visible text apart.
    void setLinkMsg(int index, QString const& url, QString const& text);

    // Each runs the dialog and returns true when the user pressed Ok. With one
    // text the first line names the title ("Title:") and the text follows it;
    // otherwise the texts fill the lines in order.
    static bool warnYesNoMsg(QWidget* parent, QString const& title, QString const& text);
    static bool warnYesNoMsg(QWidget* parent, QString const& title, QString const& text1,
                             QString const& text2);
    static bool warnYesNoMsg(QWidget* parent, QString const& title, QString const& text1,
                             QString const& text2, QString const& text3);

    Ui::YesNoContinueDlg* m_ui;

private:
    QLabel* messageLabel(int index) const;
};
