#pragma once

#include "app/layout/Column.h"
#include "app/model/Poll.h"
#include "app/pages/PageContext.h"
#include "kit/session/EthernetTest.h"

namespace tessivo {

class Panel;
class TextLabel;

/// The wired-port test: polls the network interfaces while it is open.
class EthernetView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit EthernetView(const PageContext& context, QWidget* parent = nullptr);

private:
    void scan();
    void show();

    AppModel& m_model;
    std::optional<std::vector<WiredInterface>> m_now; ///< absent before the first scan
    Panel* m_ports;
    TextLabel* m_headline;
    TextLabel* m_explanation;
    std::unique_ptr<Poll> m_poll;
};

} // namespace tessivo
