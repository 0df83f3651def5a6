// The cost of the page machinery over what it drives: a form page of 1,000
// bound amount boxes shown from its fields (GetDataFromDoc) against a plain
// loop of setDouble on the same boxes; and one edit on a worksheet page of 200
// boxes (the handler, Calculate, the full redraw) against the same redraw
// written as a plain loop.
#include <LibBedrock.h>

#include <QApplication>
#include <QGridLayout>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

template<typename Page>
void bindAmounts(Page& page, std::vector<DoubleLineEdit*>& boxes, std::vector<CFloatField>& fields)
{
    auto* grid = new QGridLayout(&page);
    for (size_t i = 0; i < fields.size(); ++i) {
        auto* box = new DoubleLineEdit(&page);
        box->setObjectName(QStringLiteral("fld_%1").arg(i));
        grid->addWidget(box, int(i / 10), int(i % 10));
        page.m_floatEdits[box->objectName()] = box;
        page.m_floatFields[box] = &fields[i];
        QObject::connect(box, SIGNAL(editingFinished()), &page, SLOT(onFloatEditFinished()));
        boxes.push_back(box);
    }
}

class AmountPage : public BaseTaxPage
{
public:
    explicit AmountPage(int count)
        : BaseTaxPage(1, nullptr, nullptr)
        , fields(size_t(count))
    {
        for (size_t i = 0; i < fields.size(); ++i)
            fields[i].m_value = 1000.25 + double(i);
    }
    void AssociateFormData() override { bindAmounts(*this, boxes, fields); }
    std::vector<CFloatField> fields;
    std::vector<DoubleLineEdit*> boxes;
};

// Each line is the one before plus the first: enough arithmetic to redraw all.
struct Sheet : CWSBaseData {
    explicit Sheet(int count)
        : lines(size_t(count))
    { }
    int Calculate() override
    {
        for (size_t i = 1; i < lines.size(); ++i)
            lines[i].m_value = lines[i - 1].m_value + lines[0].m_value;
        return 0;
    }
    std::vector<CFloatField> lines;
};

class SheetPage : public PpgWizardPage
{
public:
    SheetPage(Sheet* sheet)
        : PpgWizardPage(sheet, nullptr, nullptr)
        , s(sheet)
    { }
    void AssociateFormData() override { bindAmounts(*this, boxes, s->lines); }
    Sheet* s;
    std::vector<DoubleLineEdit*> boxes;
};

void FormPageGetDataFromDoc(benchmark::State& state)
{
    AmountPage page(1000);
    page.show();
    page.syncData();
    for (auto _ : state)
        page.GetDataFromDoc();
}

void FormPagePlainSetDouble(benchmark::State& state)
{
    AmountPage page(1000);
    page.show();
    page.syncData();
    for (auto _ : state) {
        for (size_t i = 0; i < page.boxes.size(); ++i)
            page.boxes[i]->setDouble(page.fields[i].m_value);
    }
}

void WorksheetOneEdit(benchmark::State& state)
{
    Sheet sheet(200);
    SheetPage page(&sheet);
    page.show();
    page.AssociateFormData();
    page.GetDataFromDoc();
    DoubleLineEdit* first = page.boxes.front();
    int n = 0;
    for (auto _ : state) {
        // 1 and 2 in turn, so every box of the page shows a new value each time.
        first->setText(QString::number(1 + (++n & 1)));
        Q_EMIT first->editingFinished();
    }
}

void WorksheetPlainRedraw(benchmark::State& state)
{
    Sheet sheet(200);
    SheetPage page(&sheet);
    page.show();
    page.AssociateFormData();
    page.GetDataFromDoc();
    // The two sets of values the edit above alternates between.
    std::vector<double> shown[2];
    for (int k = 0; k < 2; ++k) {
        sheet.lines[0].m_value = 1 + k;
        sheet.Calculate();
        for (const CFloatField& line : sheet.lines)
            shown[k].push_back(line.m_value);
    }
    int n = 0;
    for (auto _ : state) {
        const std::vector<double>& values = shown[++n & 1];
        for (size_t i = 0; i < page.boxes.size(); ++i)
            page.boxes[i]->setDouble(values[i]);
    }
}

} // namespace

BENCHMARK(FormPageGetDataFromDoc)->Unit(benchmark::kMicrosecond);
BENCHMARK(FormPagePlainSetDouble)->Unit(benchmark::kMicrosecond);
BENCHMARK(WorksheetOneEdit)->Unit(benchmark::kMicrosecond);
BENCHMARK(WorksheetPlainRedraw)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
