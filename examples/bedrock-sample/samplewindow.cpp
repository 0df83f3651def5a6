#include "samplewindow.h"

#include "sampleendpoint.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QWidget* scrollOf(QWidget* page)
{
    for (QWidget* w = page; w; w = w->parentWidget()) {
        if (qobject_cast<ScrollTaxForm*>(w))
            return w;
    }
    return nullptr;
}

// A left click in the middle of the widget, as the pointer would give it.
void clickOn(QWidget* w)
{
    const QPointF local(w->width() / 2.0, w->height() / 2.0);
    const QPointF global = w->mapToGlobal(local);
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(w, &release);
}

/*
 * Takes the pictures one after another from a polling timer: a page is shown,
 * then grabbed on the next tick; a worksheet door is clicked, and the modal
 * dialog it opens is grabbed and closed from within the dialog's own loop.
 */
class ScreenshotRun : public QObject
{
public:
    ScreenshotRun(const QString& dir, QWidget* window, std::function<void(int)> done)
        : QObject(window)
        , m_dir(dir)
        , m_window(window)
        , m_done(std::move(done))
    {
        connect(&m_timer, &QTimer::timeout, this, &ScreenshotRun::tick);
    }

    void add(const QString& name, std::function<void()> open, bool dialog)
    {
        m_shots.push_back({ name, std::move(open), dialog });
    }

    void start()
    {
        m_timer.start(10);
        next();
    }

private:
    enum State { GrabPage, AwaitDialog, AwaitClose };
    struct Shot {
        QString name;
        std::function<void()> open;
        bool dialog;
    };

    void next()
    {
        if (m_index == m_shots.size()) {
            m_timer.stop();
            m_done(m_failures);
            deleteLater();
            return;
        }
        const Shot& shot = m_shots[m_index++];
        m_state = shot.dialog ? AwaitDialog : GrabPage;
        m_ticks = 0;
        shot.open();
    }

    void save(QWidget* w)
    {
        const QString suffix = sampleFrench() ? QStringLiteral("-fr") : QStringLiteral("-en");
        const QString path = m_dir.filePath(m_shots[m_index - 1].name + suffix + ".png");
        if (!w->grab().save(path)) {
            qWarning("cannot write %s", qPrintable(path));
            ++m_failures;
        }
    }

    void tick()
    {
        // A dialog that never comes (or never goes) fails its picture after 5 s.
        const bool late = ++m_ticks > 500;
        QWidget* modal = QApplication::activeModalWidget();
        if (m_state == GrabPage) {
            save(m_window);
            next();
        } else if (m_state == AwaitDialog && modal && modal->isVisible()) {
            save(modal);
            m_state = AwaitClose;
            modal->close();
        } else if ((m_state == AwaitClose && !modal) || late) {
            m_failures += late ? 1 : 0;
            next();
        }
    }

    QDir m_dir;
    QWidget* m_window;
    std::function<void(int)> m_done;
    std::vector<Shot> m_shots;
    size_t m_index = 0;
    State m_state = GrabPage;
    int m_ticks = 0;
    int m_failures = 0;
    QTimer m_timer;
};

} // namespace

SampleWindow::SampleWindow(bool sampleFigures)
    : m_return(std::make_unique<SampleReturn>())
    , m_tabs(new QTabWidget(this))
{
    setWindowTitle(say("LibBedrock sample return", "Déclaration d'exemple LibBedrock"));
    if (sampleFigures)
        m_return->fillSample();
    setCentralWidget(m_tabs);

    // What was filed, and what the endpoint answered.
    m_filingTab = new QWidget(m_tabs);
    auto* filingLayout = new QVBoxLayout(m_filingTab);
    m_filingStatus = new QLabel(
        say("The return has not been filed yet.", "La déclaration n'a pas encore été transmise."),
        m_filingTab);
    m_filingStatus->setObjectName(QStringLiteral("filingStatus"));
    m_filingStatus->setWordWrap(true);
    m_filingText = new QPlainTextEdit(m_filingTab);
    m_filingText->setObjectName(QStringLiteral("filingText"));
    m_filingText->setReadOnly(true);
    m_filingText->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_filingText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* fileButton
        = new QPushButton(say("File to the test endpoint on this computer",
                              "Transmettre au point de réception d'essai sur cet ordinateur"),
                          m_filingTab);
    connect(fileButton, &QPushButton::clicked, this, &SampleWindow::fileToLoopback);
    filingLayout->addWidget(m_filingStatus);
    filingLayout->addWidget(m_filingText, 1);
    filingLayout->addWidget(fileButton, 0, Qt::AlignLeft);
    m_tabs->addTab(m_filingTab, say("Filing", "Transmission"));

    QMenu* file = menuBar()->addMenu(say("&Return", "&Déclaration"));
    file->addAction(say("&New, with sample figures", "&Nouvelle, avec des montants d'exemple"),
                    QKeySequence::New, this, &SampleWindow::newSampleReturn);
    file->addAction(say("&Open...", "&Ouvrir..."), QKeySequence::Open, this,
                    &SampleWindow::openWithDialogs);
    file->addAction(say("&Save as...", "&Enregistrer sous..."), QKeySequence::Save, this,
                    &SampleWindow::saveWithDialogs);
    file->addSeparator();
    file->addAction(say("&File the return", "&Transmettre la déclaration"), this,
                    &SampleWindow::fileToLoopback);
    file->addSeparator();
    file->addAction(say("&Quit", "&Quitter"), QKeySequence::Quit, this, &QWidget::close);

    buildPages();
    resize(960, 700);
}

SampleWindow::~SampleWindow()
{
    // The pages point into the return: they go first.
    clearPages();
}

void SampleWindow::buildPages()
{
    SampleReturn& r = *m_return;
    m_pages = { new IdentificationPage(&r.t1, this), new IncomePage(&r.t1, this),
                new CreditsPage(&r, this), new Schedule4Page(&r.schedule4, this) };
    int index = 0;
    for (SamplePage* page : m_pages) {
        connect(page, &BaseTaxPage::signalCalc, this, &SampleWindow::recalculate);
        auto* scroll = new ScrollTaxForm(QStringLiteral("#f7f7fb"), m_tabs, page);
        m_tabs->insertTab(index++, scroll, page->getTitle());
        page->syncData();
    }
    m_tabs->setCurrentIndex(0);
}

void SampleWindow::clearPages()
{
    for (SamplePage* page : m_pages)
        delete scrollOf(page);
    m_pages.clear();
}

void SampleWindow::recalculate(CTaxData_Form*, CField*)
{
    m_return->calculate();
    for (SamplePage* page : m_pages)
        page->syncData();
}

bool SampleWindow::event(QEvent* e)
{
    if (e->type() == QEvent::Type(EventForwardEdit::Type)) {
        auto* forward = static_cast<EventForwardEdit*>(e);
        for (SamplePage* page : m_pages) {
            if (page->m_form->m_kind == 0 && page->m_form->m_formType == forward->m_value) {
                m_tabs->setCurrentWidget(scrollOf(page));
                break;
            }
        }
        return true;
    }
    return QMainWindow::event(e);
}

bool SampleWindow::saveReturn(const QString& path, const CString& key)
{
    QString error;
    if (!m_return->save(path, key, error)) {
        statusBar()->showMessage(say("Not saved: ", "Non enregistrée : ") + error);
        return false;
    }
    statusBar()->showMessage(say("Saved in ", "Enregistrée dans ") + path);
    return true;
}

bool SampleWindow::openReturn(const QString& path, const CString& key)
{
    auto loaded = std::make_unique<SampleReturn>();
    QString error;
    if (!loaded->load(path, key, error)) {
        statusBar()->showMessage(say("Not opened: ", "Non ouverte : ") + error);
        return false;
    }
    replaceReturn(std::move(loaded));
    statusBar()->showMessage(say("Opened ", "Ouverte : ") + path);
    return true;
}

void SampleWindow::newSampleReturn()
{
    auto sample = std::make_unique<SampleReturn>();
    sample->fillSample();
    replaceReturn(std::move(sample));
}

// Fresh pages over a fresh return; the old pages go before the old return.
void SampleWindow::replaceReturn(std::unique_ptr<SampleReturn> fresh)
{
    const int current = m_tabs->currentIndex();
    clearPages();
    m_return = std::move(fresh);
    buildPages();
    m_tabs->setCurrentIndex(current);
    showFiling(
        say("The return has not been filed yet.", "La déclaration n'a pas encore été transmise."),
        QString());
}

void SampleWindow::openWithDialogs()
{
    const QString path
        = QFileDialog::getOpenFileName(this, say("Open a return", "Ouvrir une déclaration"),
                                       QString(), say("Returns (*.ret)", "Déclarations (*.ret)"));
    bool ok = false;
    const QString key = path.isEmpty()
        ? QString()
        : QInputDialog::getText(this, say("Open a return", "Ouvrir une déclaration"),
                                say("Password of the return:", "Mot de passe de la déclaration :"),
                                QLineEdit::Password, QString(), &ok);
    if (ok)
        openReturn(path, CString(key));
}

void SampleWindow::saveWithDialogs()
{
    QString path
        = QFileDialog::getSaveFileName(this, say("Save the return", "Enregistrer la déclaration"),
                                       QString(), say("Returns (*.ret)", "Déclarations (*.ret)"));
    bool ok = false;
    const QString key = path.isEmpty()
        ? QString()
        : QInputDialog::getText(this, say("Save the return", "Enregistrer la déclaration"),
                                say("Password of the return:", "Mot de passe de la déclaration :"),
                                QLineEdit::Password, QString(), &ok);
    if (ok && !key.isEmpty()) {
        if (!path.endsWith(QLatin1String(".ret")))
            path += QLatin1String(".ret");
        saveReturn(path, CString(key));
    }
}

void SampleWindow::showFiling(const QString& status, const QString& text)
{
    m_filingStatus->setText(status);
    m_filingText->setPlainText(text);
}

bool SampleWindow::fileReturn(const QByteArray& url)
{
    SampleReturn::Filing filing;
    QString error;
    if (!m_return->buildFiling(filing, error)) {
        showFiling(say("Not filed: ", "Non transmise : ") + error, QString());
        m_tabs->setCurrentWidget(m_filingTab);
        return false;
    }
    QWebClient client(url.constData(), false);
    std::string answer;
    // An empty answer is how a service that never answered shows.
    const bool ok = client.postSoapXML(filing.document.toStdStringUTF8(),
                                       QStringLiteral("text/xml; charset=utf-8"), "sample-user",
                                       "sample-secret", answer)
        && !answer.empty();
    const QString status = (ok ? say("Filed to %1. The answer: %2", "Transmise à %1. Réponse : %2")
                               : say("Filing to %1 failed. The answer: %2",
                                     "La transmission à %1 a échoué. Réponse : %2"))
                               .arg(QString::fromLatin1(url), QString::fromStdString(answer));
    const QString summary = say("%1 line records, a T1013 block of %2 bytes and a barcode block "
                                "of %3 bytes, sent in this document:",
                                "%1 lignes, un bloc T1013 de %2 octets et un code à barres de "
                                "%3 octets, envoyés dans ce document :")
                                .arg(filing.records)
                                .arg(filing.t1013.size())
                                .arg(filing.barcode.size());
    showFiling(status + QLatin1Char('\n') + summary, filing.document);
    m_tabs->setCurrentWidget(m_filingTab);
    return ok;
}

bool SampleWindow::fileToLoopback()
{
    SampleEndpoint endpoint;
    if (endpoint.listener.serverPort() == 0) {
        showFiling(say("No endpoint: ", "Aucun point de réception : ")
                       + endpoint.listener.errorString(),
                   QString());
        return false;
    }
    if (!fileReturn(endpoint.url()))
        return false;
    // What reached the endpoint, headers and all, instead of what was meant to.
    m_filingStatus->setText(m_filingStatus->text()
                            + say("\nThe endpoint received this request:",
                                  "\nLe point de réception a reçu cette requête :"));
    m_filingText->setPlainText(QString::fromUtf8(endpoint.received));
    return true;
}

void SampleWindow::takeScreenshots(const QString& dir, std::function<void(int)> done)
{
    fileToLoopback();
    auto* run = new ScreenshotRun(dir, this, std::move(done));
    for (SamplePage* page : m_pages) {
        run->add(
            "sample-" + page->slug(), [this, page] { m_tabs->setCurrentWidget(scrollOf(page)); },
            false);
    }
    run->add(
        QStringLiteral("sample-filing"), [this] { m_tabs->setCurrentWidget(m_filingTab); }, false);
    const std::pair<const char*, const char*> doors[]
        = { { "fld_30100", "sample-ws-age" }, { "fld_58400", "sample-ws-caregiver" } };
    for (const auto& [door, name] : doors) {
        auto* box = findChild<DoubleLineEdit*>(QString::fromLatin1(door));
        run->add(
            QString::fromLatin1(name),
            [this, box] {
                m_tabs->setCurrentWidget(scrollOf(box));
                clickOn(box);
            },
            true);
    }
    run->start();
}
