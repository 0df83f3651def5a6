#include "wsmultidepdlg.h"

#include "ppgwizardpage.h"
#include "ui_wsmultidepdlg.h"

WSMultiDepDlg::WSMultiDepDlg(QString const& title, std::list<PpgWizardPage*>& pages,
                             QWidget* parent)
    : BaseDialog(title, parent)
    , m_pages(&pages)
    , m_ui(new Ui::WSMultiDepDlg)
{
    m_ui->setupUi(this);
}

WSMultiDepDlg::~WSMultiDepDlg()
{
    delete m_ui;
}

void WSMultiDepDlg::initUI(int width, int height)
{
    QTabWidget* tabs = m_ui->tabWgt1;
    tabs->clear();
    // The form's placeholder tabs go for good; the caller's pages are never deleted here.
    delete m_ui->tab;
    m_ui->tab = nullptr;
    delete m_ui->tab_2;
    m_ui->tab_2 = nullptr;
    tabs->setUsesScrollButtons(true);
    tabs->setElideMode(Qt::ElideRight);
    int counter = 0;
    for (PpgWizardPage* page : *m_pages) {
        ++counter;
        if (!page)
            continue;
        const QString text = page->m_tabTitle.isEmpty()
            ? QStringLiteral("Dependant %1").arg(counter)
            : page->m_tabTitle;
        tabs->addTab(page, text);
        // A page is bound once; a second initUI only shows it again.
        if (!m_bound)
            page->AssociateFormData();
        page->GetDataFromDoc();
    }
    m_bound = true;
    resize(width, height);
}

int WSMultiDepDlg::exec()
{
    afterCreateUI();
    return QDialog::exec();
}
