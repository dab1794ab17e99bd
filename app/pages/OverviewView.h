#pragma once

#include "app/layout/ScrollColumn.h"
#include "app/model/AppModel.h"

#include <map>

namespace tessivo {

class Button;
class FactGrid;
class SegmentedPicker;
class StatusBadge;
class SymbolView;
class TextLabel;
class Tile;

/// "This Mac": what the machine is, the two answers that decide a sale, and a tile for each test's page.
class OverviewView final : public ScrollColumn {
    Q_OBJECT
public:
    explicit OverviewView(AppModel& model, QWidget* parent = nullptr);

private:
    void addHeader();
    void addIdentity();
    void addEnrollment();
    void addActivationLock();
    void addTiles();

    void followState();
    void followMachine();
    void followEnrollment();
    void followActivationLock();
    void followTiles();

    AppModel& m_model;
    SymbolView* m_symbol;
    TextLabel* m_name;
    FactGrid* m_identity;
    StatusBadge* m_enrollment;
    TextLabel* m_enrollmentSummary;
    Column* m_enrollmentDetails;
    std::vector<TextLabel*> m_detailLines;
    Button* m_readAgain;
    StatusBadge* m_lock;
    SegmentedPicker* m_lockAnswer;
    TextLabel* m_lockWarning;
    std::map<Page, Tile*> m_tiles;
};

} // namespace tessivo
