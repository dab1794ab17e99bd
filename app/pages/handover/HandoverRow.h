#pragma once

#include "app/layout/Column.h"
#include "app/look/Theme.h"
#include "app/pages/PageContext.h"
#include "kit/report/Handover.h"

namespace tessivo {

class Checkbox;
class SymbolView;

/// One step of the checklist: its symbol and title, what to do, and the support pages that tell more. With
/// a checkbox where the seller ticks it.
class HandoverRow final : public QWidget {
    Q_OBJECT

public:
    enum class Kind { ticked, plain };

    HandoverRow(HandoverStep step, Kind kind, const PageContext& context, QWidget* parent = nullptr);

    HandoverStep step() const { return m_step; }
    void setTicked(bool ticked);
    /// Something more below the links.
    void add(QWidget* widget, int gapAbove) { m_words->add(widget, gapAbove); }
    /// Where the words of a row begin, from its left edge.
    static int textLeft(Kind kind);
    static int symbolLeft(Kind kind);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The person ticked the step, or took the tick back.
    void ticked(tessivo::HandoverStep step, bool ticked);

private:
    HandoverStep m_step;
    Checkbox* m_box = nullptr;
    SymbolView* m_symbol;
    Column* m_words;
};

} // namespace tessivo
