#include "app/pages/microphones/MicrophoneRow.h"

#include "app/controls/Button.h"
#include "app/controls/LevelBar.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/Column.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "kit/hardware/LevelMeter.h"
#include "kit/support/Text.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr int nameWidth = 254;
constexpr int buttonGap = 32;
constexpr int verdictGap = 5;
const QString listenText = "Listen";
const QString stopText = "Stop";

/// As wide as designed, whatever it holds, so that the meters of all rows begin at one place; narrower where
/// the row is.
class NameColumn final : public Column {
public:
    using Column::Column;
    QSize sizeHint() const override { return {theme().scaled(nameWidth), Column::sizeHint().height()}; }
};

} // namespace

MicrophoneRow::MicrophoneRow(const QString& name, QWidget* parent)
    : QWidget(parent),
      m_heard(new SymbolView("checkmark.circle.fill", SymbolSize::link, ColorRole::greenGlyph)),
      m_verdict(new TextLabel),
      m_meter(new LevelBar),
      m_button(new Button(listenText, "mic.fill")) {
    setAccessibleName(name);
    m_button->setAccessibleDescription(name);
    m_button->setWidthTexts({listenText, stopText});

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Space::block, Space::s, Space::block, Space::s);
    row->setSpacing(0);
    row->addWidget(makeTexts(name), 0, Qt::AlignVCenter);
    row->addSpacing(Space::block);
    row->addWidget(m_meter, 1);
    row->addSpacing(buttonGap);
    row->addWidget(m_button);
    setMinimumHeight(theme().scaled(Height::microphoneRow));

    connect(m_button, &Button::clicked, this, &MicrophoneRow::toggled);
    setReading(nullptr);
    setLevel(std::nullopt);
}

QWidget* MicrophoneRow::makeTexts(const QString& name) {
    auto* title = new TextLabel(name, TextRole::headline);
    title->setMaximumLines(1);
    m_verdict->setMaximumLines(1);
    auto* verdict = new QWidget;
    auto* line = new QHBoxLayout(verdict);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(verdictGap);
    line->addWidget(m_heard);
    line->addWidget(m_verdict, 1);
    // The two verdicts differ in type; the name above them stays.
    verdict->setMinimumHeight(theme().lineHeight(TextRole::callout));

    auto* texts = new NameColumn;
    texts->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    texts->add(title);
    texts->add(verdict);
    return texts;
}

void MicrophoneRow::setReading(const MicReading* reading) {
    const bool heard = reading && reading->heardSound();
    m_heard->setVisible(heard);
    m_verdict->setTextRole(heard ? TextRole::badge : TextRole::callout);
    m_verdict->setColorRole(heard ? ColorRole::green : ColorRole::text2);
    m_verdict->setText(heard ? "Picked up sound" : "Too quiet so far");
}

void MicrophoneRow::setLevel(std::optional<double> level) {
    if (level)
        m_button->setLabel(stopText, "stop.fill");
    else
        m_button->setLabel(listenText, "mic.fill");
    m_meter->setLevel(level ? LevelMeter::meterFraction(*level) : 0,
                      level ? qt(Text::whole(*level)) + " decibels" : "not listening");
}

} // namespace tessivo
