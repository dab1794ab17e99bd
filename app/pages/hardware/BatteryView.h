#pragma once

#include "app/layout/Column.h"
#include "app/pages/PageContext.h"

namespace tessivo {

class FactGrid;

/// The battery's figures as they were last read.
class BatteryView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit BatteryView(const PageContext& context, QWidget* parent = nullptr);

private:
    void show();

    AppModel& m_model;
    FactGrid* m_facts;
};

} // namespace tessivo
