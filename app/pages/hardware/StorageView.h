#pragma once

#include "app/layout/Column.h"
#include "app/pages/PageContext.h"

namespace tessivo {

class FactGrid;
class LinkLabel;
class Picker;
class TextLabel;

/// The drive's size beside the sizes the model was sold with and the size the listing states.
class StorageView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit StorageView(const PageContext& context, QWidget* parent = nullptr);

private:
    void show();

    AppModel& m_model;
    FactGrid* m_facts;
    TextLabel* m_note;
    LinkLabel* m_source;
    Picker* m_listing;
    std::vector<std::optional<std::int64_t>> m_choices; ///< what each choice of the picker stands for
};

} // namespace tessivo
