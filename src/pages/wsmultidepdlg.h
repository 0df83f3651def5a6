// WSMultiDepDlg: a worksheet with one tab a dependant.
#pragma once

#include "basedialog.h"
#include "libbedrock_export.h"

#include <list>

class PpgWizardPage;

namespace Ui {
class WSMultiDepDlg;
}

/*
 * initUI() makes one tab of each non-null page, titled by the page's
 * m_tabTitle or "Dependant N" (N counts every entry of the list, null ones
 * too), and binds and shows each page. The tabs then own the pages. Ok is the
 * only button: the pages have stored every edit already.
 */
class LIBBEDROCK_EXPORT WSMultiDepDlg : public BaseDialog
{
    Q_OBJECT

public:
    // `pages` must outlive the dialog's initUI.
    WSMultiDepDlg(QString const& title, std::list<PpgWizardPage*>& pages, QWidget* parent);
    ~WSMultiDepDlg() override;

    void initUI(int width, int height);
    // Applies the title and appearance (afterCreateUI), then runs the dialog.
    int exec() override;

    std::list<PpgWizardPage*>* m_pages;
    Ui::WSMultiDepDlg* m_ui;

private:
    bool m_bound = false;
};
