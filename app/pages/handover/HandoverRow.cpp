#include "app/pages/handover/HandoverRow.h"

#include "app/controls/Capsule.h"
#include "app/controls/Checkbox.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMouseEvent>

namespace tessivo {

namespace {

constexpr int topPadding = 14;
constexpr int underTitle = 2;

/// What stands on the line of the title, as high as that line.
QWidget* onTitleLine(QWidget* widget) {
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(widget);
    line->setFixedHeight(theme().lineHeight(TextRole::headline));
    return line;
}

} // namespace

int HandoverRow::symbolLeft(Kind kind) {
    return Space::block + (kind == Kind::ticked ? theme().scaled(Height::checkbox) + Space::l : 0);
}

int HandoverRow::textLeft(Kind kind) {
    return symbolLeft(kind) + theme().scaled(SymbolSize::row) + Space::l;
}

HandoverRow::HandoverRow(HandoverStep step, Kind kind, const PageContext& context, QWidget* parent)
    : QWidget(parent),
      m_step(step),
      m_symbol(new SymbolView(QString::fromLatin1(symbol(step)), SymbolSize::row,
                              kind == Kind::plain ? ColorRole::accent : ColorRole::text2)),
      m_words(new Column) {
    const MachineInfo& machine = context.model.state().machine;
    const QString name = QString::fromUtf8(title(step));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Space::block, topPadding, Space::block, Space::l);
    row->setSpacing(Space::l);
    if (kind == Kind::ticked) {
        m_box = new Checkbox;
        m_box->setAccessibleName(name);
        m_box->setAccessibleDescription(QStringLiteral("Ticked by you. Tessivo can't check this."));
        m_box->setToolTip(m_box->accessibleDescription());
        connect(m_box, &Checkbox::clicked, this, [this](bool on) { Q_EMIT ticked(m_step, on); });
        row->addWidget(onTitleLine(m_box), 0, Qt::AlignTop);
    }
    row->addWidget(onTitleLine(m_symbol), 0, Qt::AlignTop);
    row->addWidget(m_words, 1);

    auto* heading = new TextLabel(name, TextRole::headline);
    if (m_box) heading->installEventFilter(this);
    if (step == HandoverStep::nvram) {
        auto* line = new WrapRow;
        line->add(heading);
        const Capsule::Look quiet{
            {}, QStringLiteral("Optional"), ColorRole::text2, ColorRole::text2, ColorRole::text1, 5};
        line->add(new Capsule(Capsule::lowTag, quiet));
        m_words->add(line);
    } else {
        m_words->add(heading);
    }
    m_words->add(new TextLabel(QString::fromStdString(Handover::text(step, machine)), TextRole::body,
                               ColorRole::text2),
                 underTitle);
    Desktop& desktop = context.model.platform().desktop();
    for (const HelpLink& link : Handover::links(step, machine)) {
        auto* label = new LinkLabel(QString::fromStdString(link.title));
        connect(label, &LinkLabel::clicked, this, [&desktop, url = link.url] { desktop.openURL(url); });
        m_words->add(label, Space::xxs, Qt::AlignLeft);
    }
}

void HandoverRow::setTicked(bool ticked) {
    m_box->setChecked(ticked);
    m_symbol->setSymbol(QString::fromLatin1(symbol(m_step)), ticked ? ColorRole::accent : ColorRole::text2);
}

bool HandoverRow::eventFilter(QObject* watched, QEvent* event) {
    // The title is the checkbox's label.
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (press || event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const bool inside = static_cast<QWidget*>(watched)->rect().contains(mouse->position().toPoint());
        if (mouse->button() == Qt::LeftButton) {
            if (!press && inside) m_box->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tessivo
