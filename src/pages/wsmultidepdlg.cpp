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
    // The form's placeholder tabs go for good.
    while (tabs->count() > 0) {
        QWidget* placeholder = tabs->widget(0);
        tabs->removeTab(0);
        delete placeholder;
    }
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
        page->AssociateFormData();
        page->GetDataFromDoc();
    }
    resize(width, height);
}

int WSMultiDepDlg::exec()
{
    afterCreateUI();
    return QDialog::exec();
}
