#include "app/pages/hardware/EthernetView.h"

#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/hardware/HardwareRow.h"
#include "app/readers/Readers.h"
#include "kit/rules/RuleTexts.h"

namespace tessivo {

namespace {

constexpr auto pollInterval = std::chrono::seconds(1);

} // namespace

const char* const EthernetView::how =
    "Plug an Ethernet cable from a router, switch or wall jack into the Mac's Ethernet port. When the other "
    "end answers, the link comes up and its speed shows here (usually 1 Gb/s, or 10 Gb/s on Macs with the "
    "faster port). Nothing is sent over the network; this only reads whether the port has a link.";

EthernetView::EthernetView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_ports(new Panel(Panel::Kind::list)),
      m_headline(new TextLabel({}, TextRole::headline)),
      m_explanation(new TextLabel("Some iMacs have the Ethernet port on the power adapter, and some have "
                                  "none. If this one has none, "
                                  "tick \"Not part of this sale\" below.",
                                  TextRole::body, ColorRole::text2)) {
    add(m_ports);
    add(m_headline);
    add(m_explanation, Space::xs);
    show();
    m_poll = std::make_unique<Poll>(m_model.platform().scheduler(), pollInterval, [this] { scan(); });
}

void EthernetView::scan() {
    auto interfaces = readWiredInterfaces(m_model.platform().registry());
    EthernetTest test = m_model.state().ethernet.value_or(EthernetTest{});
    test.record(interfaces);
    if (m_now != interfaces) {
        m_now = std::move(interfaces);
        show();
    }
    if (m_model.state().ethernet != test)
        m_model.change([&](SessionState& state) { state.ethernet = std::move(test); });
}

void EthernetView::show() {
    const auto ports = m_now ? EthernetCheck::builtInPorts(*m_now) : std::vector<WiredInterface>{};
    m_headline->setText(m_now ? qt(Rules::noEthernetPort) : "Looking for the Ethernet port…");
    m_headline->setVisible(ports.empty());
    m_explanation->setVisible(m_now && ports.empty());
    m_ports->setVisible(!ports.empty());
    m_ports->clear();
    for (const WiredInterface& port : ports) {
        auto* row = new HardwareRow(Height::portRow);
        const QString name = "Ethernet (" + qt(port.bsdName) + ")";
        if (port.linkActive) {
            const auto speed = port.speedText();
            row->setSymbol("checkmark.circle.fill", ColorRole::greenGlyph);
            row->setTexts(name, "Link up" + (speed ? " at " + qt(*speed) : QString()), ColorRole::text1);
        } else {
            row->setSymbol("circle.dotted", ColorRole::grayGlyph);
            row->setTexts(name,
                          port.switchedOff ? "The port is switched off in the system's settings."
                                           : "No link: plug in a cable",
                          ColorRole::text2);
        }
        m_ports->addRow(row);
    }
}

} // namespace tessivo
