// What a report's document costs: set, drawn as a PDF, and read anew while someone types; beside the same
// text through pango and cairo. The first of each kind pays for the fonts.
#include "app/document/ReportDocument.h"
#include "app/document/ReportPrinting.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"

#include <QGuiApplication>
#include <QTextBlock>
#include <benchmark/benchmark.h>
#include <cairo-pdf.h>
#include <pango/pangocairo.h>

namespace {

using namespace tessivo;

constexpr double paperWidth = 612, paperHeight = 792; ///< US Letter in points
constexpr double textWidth = paperWidth - 2 * ReportPrinting::margin;

ConditionReport sampleReport() {
    return ReportAssembler::make(Samples::session(), Date{794448429}, "1.0", Samples::notes());
}

void setDocument(benchmark::State& state) {
    const ConditionReport report = sampleReport();
    double height = 0;
    for (auto _ : state)
        height = ReportDocument::make(report, textWidth)->size().height() / ReportDocument::unitsPerPoint;
    state.counters["points"] = height;
}
BENCHMARK(setDocument)->Name("setDocument/first")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(setDocument)->Name("setDocument/warm")->Unit(benchmark::kMillisecond);

void drawPDF(benchmark::State& state) {
    const ConditionReport report = sampleReport();
    std::size_t size = 0;
    for (auto _ : state)
        size = ReportPrinting::pdf(report, QPageSize(QPageSize::Letter)).size();
    state.counters["KB"] = double(size) / 1000;
}
BENCHMARK(drawPDF)->Name("drawPDF/first")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(drawPDF)->Name("drawPDF/warm")->Unit(benchmark::kMillisecond);

/// A summary of so many characters, as the sheet shows it and as the PDF holds it.
void longSummary(benchmark::State& state) {
    ConditionReport report = sampleReport();
    std::string& summary = report.results.front().summary;
    while (summary.size() < std::size_t(state.range(0)))
        summary += " a word of the summary";
    for (auto _ : state)
        benchmark::DoNotOptimize(ReportDocument::make(report, textWidth)->size());
}
BENCHMARK(longSummary)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void longSummaryPDF(benchmark::State& state) {
    ConditionReport report = sampleReport();
    report.results.front().summary = std::string(std::size_t(state.range(0)), 'x');
    for (auto _ : state)
        benchmark::DoNotOptimize(ReportPrinting::pdf(report, QPageSize(QPageSize::Letter)));
}
BENCHMARK(longSummaryPDF)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

cairo_status_t append(void* bytes, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

/// The document's own text, a layout for each paragraph in its first run's size, in the same faces.
std::string pangoPDF(const QTextDocument& document) {
    std::string bytes;
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(append, &bytes, paperWidth, paperHeight);
    cairo_t* cairo = cairo_create(surface);
    double y = ReportPrinting::margin;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        PangoLayout* layout = pango_cairo_create_layout(cairo);
        const QFont font =
            block.begin().atEnd() ? document.defaultFont() : block.begin().fragment().charFormat().font();
        PangoFontDescription* face = pango_font_description_from_string("Inter, DejaVu Sans");
        pango_font_description_set_absolute_size(face, font.pointSizeF() * PANGO_SCALE);
        pango_font_description_set_weight(face, PangoWeight(font.weight()));
        pango_layout_set_font_description(layout, face);
        pango_layout_set_width(layout, int(textWidth * PANGO_SCALE));
        const std::string text = block.text().toStdString();
        pango_layout_set_text(layout, text.data(), int(text.size()));
        int height = 0;
        pango_layout_get_size(layout, nullptr, &height);
        if (y + double(height) / PANGO_SCALE > paperHeight - ReportPrinting::margin) {
            cairo_show_page(cairo);
            y = ReportPrinting::margin;
        }
        cairo_move_to(cairo, ReportPrinting::margin, y);
        pango_cairo_show_layout(cairo, layout);
        y += double(height) / PANGO_SCALE;
        pango_font_description_free(face);
        g_object_unref(layout);
    }
    cairo_destroy(cairo);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
    return bytes;
}

void peerPDF(benchmark::State& state) {
    const auto document = ReportDocument::make(sampleReport(), textWidth);
    std::size_t size = 0;
    for (auto _ : state)
        size = pangoPDF(*document).size();
    state.counters["KB"] = double(size) / 1000;
}
BENCHMARK(peerPDF)->Name("pangoAndCairoPDF/first")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(peerPDF)->Name("pangoAndCairoPDF/warm")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
