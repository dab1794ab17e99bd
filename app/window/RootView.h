#pragma once

#include "app/model/Updater.h"
#include "app/pages/PageContext.h"

#include <QMainWindow>

namespace tessivo {

class Commands;
class Sidebar;

/// The one window: menus, the sidebar, and beside it the page that is selected (This Mac where none is).
/// A page is made when it is opened and deleted when it is left. Main thread; what the context and the
/// updater are outlives the window.
class RootView final : public QMainWindow {
    Q_OBJECT
public:
    RootView(const PageContext& context, Updater& updater, QWidget* parent = nullptr);
    ~RootView() override;

    /// The view of the page shown now.
    QWidget* pageView() const { return m_view; }
    /// The report that the Report page shows, while it is open, or else one that is made now.
    ConditionReport report() const;

Q_SIGNALS:
    /// The person closed the window, which ends the program.
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class Detail;

    void showPage();
    void readWhatIsMissing();
    void fitToTheme();

    PageContext m_context;
    Sidebar* m_sidebar;
    Detail* m_detail;
    QWidget* m_view = nullptr;
    Page m_shown{};
    bool m_launched = false;
};

} // namespace tessivo
