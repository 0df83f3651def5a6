// The sample application's window: the pages of one return in tabs, the
// receiver that recalculates after each edit, and the actions on the return.
#pragma once

#include "samplepages.h"
#include "samplereturn.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <vector>

class QLabel;
class QTabWidget;

class SampleWindow : public QMainWindow
{
    Q_OBJECT

public:
    // With sample figures, or an empty return to open one into.
    explicit SampleWindow(bool sampleFigures = true);
    ~SampleWindow() override;

    SampleReturn& returnData() { return *m_return; }
    QTabWidget* tabs() const { return m_tabs; }
    const std::vector<SamplePage*>& pages() const { return m_pages; }

    // The actions without their file and password dialogs; false, with a
    // message in the status bar, when they fail.
    bool saveReturn(const QString& path, const CString& key);
    bool openReturn(const QString& path, const CString& key);
    // Posts the filing document to `url` and shows what was sent and answered.
    bool fileReturn(const QByteArray& url);
    // Files to an endpoint of the window's own on the loopback address and
    // shows what it received.
    bool fileToLoopback();

    // Writes a picture of each page and each worksheet dialog into `dir`,
    // opening the dialogs as a person would, then calls `done` with the count
    // of pictures that failed.
    void takeScreenshots(const QString& dir, std::function<void(int)> done);

public Q_SLOTS:
    // The receiver of every page's signalCalc.
    void recalculate(CTaxData_Form* form, CField* field);

protected:
    bool event(QEvent* e) override;

private:
    void buildPages();
    void clearPages();
    void showFiling(const QString& status, const QString& text);
    void newSampleReturn();
    void replaceReturn(std::unique_ptr<SampleReturn> fresh);
    void openWithDialogs();
    void saveWithDialogs();

    std::unique_ptr<SampleReturn> m_return;
    std::vector<SamplePage*> m_pages;
    QTabWidget* m_tabs;
    QWidget* m_filingTab;
    QLabel* m_filingStatus;
    QPlainTextEdit* m_filingText;
};
