#pragma once

#include "app/controls/RowList.h"
#include "app/model/AppModel.h"

#include <map>

namespace tessivo {

class ProgressFoot;

/// The pages of the window in three sections, each with the glyph of its status, and below them, outside
/// their scrolling, how many tests are done. It follows the model and writes the page chosen into it.
class Sidebar final : public QWidget {
    Q_OBJECT
public:
    explicit Sidebar(AppModel& model, QWidget* parent = nullptr);

    /// Gives the keyboard's focus to the row of the page that is shown.
    void takeFocus();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void addRow(Page page, int gapAbove = 0);
    void addSection(const QString& title);
    void followState();
    void followPage();

    AppModel& m_model;
    RowList* m_list;
    std::map<Page, SidebarRow*> m_rows;
    ProgressFoot* m_foot;
};

} // namespace tessivo
