#include "app/pages/hardware/PortRow.h"

#include "app/controls/Button.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "kit/rules/RuleTexts.h"

namespace tessivo {

namespace {

constexpr int portNameWidth = 58;

} // namespace

PortRow::PortRow(QWidget* parent)
    : HardwareRow(Height::portRow, parent),
      m_nothing(new Button("Nothing Shows Up")),
      m_test(new Button("Test This Port")) {
    setNameWidth(portNameWidth);
    addButton(m_nothing);
    addButton(m_test);
    connect(m_nothing, &Button::clicked, this, &PortRow::nothingShowsUp);
    connect(m_test, &Button::clicked, this, &PortRow::testThis);
}

void PortRow::setSlot(const PortSlot& slot, bool active) {
    const QString name = qt(slot.title());
    const bool problem = slot.answer == ManualAnswer::problem;
    if (slot.passed())
        setSymbol("checkmark.circle.fill", ColorRole::greenGlyph);
    else if (problem)
        setSymbol("xmark.octagon.fill", ColorRole::redGlyph);
    else if (active)
        setSymbol("arrow.right.circle.fill", ColorRole::accent);
    else
        setSymbol("circle", ColorRole::grayGlyph);

    const QString words = qt(Rules::portRow(slot, active));
    if (slot.device)
        setTexts(name, words, ColorRole::text1, TextOf::device);
    else
        setTexts(name, words, problem ? ColorRole::red : ColorRole::text2);

    setActive(active);
    m_test->setVisible(!slot.device);
    m_nothing->setVisible(!slot.device && active);
    // Several rows have the same words on their buttons; a screen reader tells which port is meant.
    m_test->setAccessibleName(m_test->text() + ", " + name);
    m_nothing->setAccessibleName(m_nothing->text() + ", " + name);
}

} // namespace tessivo
