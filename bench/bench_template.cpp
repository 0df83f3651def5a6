// The template engine over a 10,000-line filing skeleton, against a plain
// loop that copies the same lines from the same kind of stream (the baseline).
#include "templateengine.h"

#include <QIODevice>
#include <QTextStream>

#include <benchmark/benchmark.h>

namespace {

constexpr int skeletonLines = 10000;

/*
 * A skeleton shaped like a filing document: element lines, required amounts,
 * optional lines whose key is absent (dropped), pre-built XML parts, some
 * blank lines, and values that need escaping.
 */
struct Skeleton {
    QString text;
    std::map<std::string, CString> values;
};

const Skeleton& skeleton()
{
    static const Skeleton made = [] {
        Skeleton s;
        for (int i = 0; i < skeletonLines; ++i) {
            const QString n = QString::number(i);
            switch (i % 10) {
            case 0:
            case 3:
            case 6:
                s.text += "    <Line code=\"" + n + "\">$$(L" + n + ")</Line>\n";
                s.values["L" + n.toStdString()] = CString(QString::number(i * 12.5, 'f', 2));
                break;
            case 1:
                s.text += "    <Name>$$(N" + n + ")</Name>\n";
                s.values["N" + n.toStdString()]
                    = CString(QStringLiteral("Lévesque & Fils <Québec>"));
                break;
            case 4:
                s.text += "    <Optional>$$(O" + n + "0)</Optional>\n";
                break;
            case 7:
                s.text += "$$($P" + n + ")\n";
                s.values["$P" + n.toStdString()]
                    = CString(QStringLiteral("<Part><Amt>1.00</Amt></Part>"));
                break;
            case 9:
                s.text += "\n";
                break;
            default:
                s.text += "  <Section id=\"s" + n + "\" kind=\"fixed\">\n";
                break;
            }
        }
        return s;
    }();
    return made;
}

// Each run reads the skeleton through a fresh stream into a fresh output.
template<typename Fill> void overSkeleton(benchmark::State& state, Fill fill)
{
    const Skeleton& s = skeleton();
    for (auto _ : state) {
        QString source = s.text;
        QTextStream in(&source, QIODevice::ReadOnly);
        CString out;
        if (!fill(in, out, s.values))
            state.SkipWithError("template run failed");
        benchmark::DoNotOptimize(out.size());
    }
    state.SetItemsProcessed(state.iterations() * skeletonLines);
}

void BM_LineCopyBaseline(benchmark::State& state)
{
    overSkeleton(state, [](QTextStream& in, CString& out, const std::map<std::string, CString>&) {
        QString line;
        while (in.readLineInto(&line)) {
            out += line;
            out += QLatin1Char('\n');
        }
        return true;
    });
}

void BM_TemplateEngine(benchmark::State& state)
{
    overSkeleton(state,
                 [](QTextStream& in, CString& out, const std::map<std::string, CString>& values) {
                     return processStringTemplatePartInString(out, in, values, 4) == 0;
                 });
}

} // namespace

BENCHMARK(BM_LineCopyBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TemplateEngine)->Unit(benchmark::kMicrosecond);
