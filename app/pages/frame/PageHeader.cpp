#include "app/pages/frame/PageHeader.h"

#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/ColumnLayout.h"
#include "app/layout/SplitLayout.h"
#include "app/look/Metrics.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr int symbolGap = 12;

} // namespace

PageHeader::PageHeader(const QString& title, const QString& symbol, QWidget* trailing, QWidget* parent)
    : QWidget(parent) {
    auto* lead = new QWidget;
    auto* row = new QHBoxLayout(lead);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(symbolGap);
    row->addWidget(new SymbolView(symbol, SymbolSize::pageHead, ColorRole::accent));
    auto* heading = new TextLabel(title, TextRole::pageTitle);
    heading->setHeading(true);
    row->addWidget(heading, 1);
    if (trailing) {
        new SplitLayout(this, lead, trailing);
    } else {
        auto* column = new ColumnLayout(this);
        column->add(lead);
    }
}

} // namespace tessivo
