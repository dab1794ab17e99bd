#include "app/pages/report/PickupRow.h"

#include "app/controls/Button.h"
#include "app/controls/StatusGlyph.h"
#include "app/controls/TextLabel.h"
#include "app/layout/Column.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/model/QtText.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr int trailingGap = 13;

} // namespace

PickupRow::PickupRow(const PickupStep& step, std::optional<Page> page, QWidget* parent)
    : QWidget(parent), m_page(page), m_glyph(new StatusGlyph(SymbolSize::glyph)) {
    const QString title = qt(step.title);
    auto* words = new Column;
    words->add(new TextLabel(title, TextRole::headline));
    words->add(new TextLabel(qt(step.expect), TextRole::callout, ColorRole::text2));

    auto* open = new Button("Open");
    open->setAccessibleDescription(title);
    // Hidden, the button and the glyph keep their columns.
    QSizePolicy policy = open->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    open->setSizePolicy(policy);
    policy = m_glyph->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_glyph->setSizePolicy(policy);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Space::block, Space::m, Space::l, Space::m);
    row->setSpacing(trailingGap);
    row->addWidget(words, 1);
    row->addWidget(new TextLabel(QString("~%1 s").arg(step.seconds), TextRole::body, ColorRole::text2), 0,
                   Qt::AlignVCenter);
    row->addWidget(m_glyph, 0, Qt::AlignVCenter);
    row->addWidget(open, 0, Qt::AlignVCenter);
    setMinimumHeight(theme().scaled(Height::pickupRow));

    open->setVisible(page.has_value());
    m_glyph->setVisible(page.has_value());
    if (page) connect(open, &Button::clicked, this, [this] { Q_EMIT opened(*m_page); });
}

void PickupRow::setStatus(std::optional<TestStatus> status) {
    m_glyph->setStatus(status);
}

void PickupRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double hairline = devicePixelRatioF() >= 2 ? 0.5 : 1;
    paintRounded(painter, rect(), Corner::tile, theme().color(ColorRole::card),
                 theme().color(ColorRole::text1, 8), hairline);
}

} // namespace tessivo
