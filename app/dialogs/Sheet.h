#pragma once

#include "app/look/Metrics.h"

#include <QPointer>
#include <QWidget>

namespace tessivo {

/// A modal sheet: a card centred in the window over a scrim. It covers the window, keeps the keyboard's
/// focus within itself and follows the window's size. Esc dismisses it.
class Sheet : public QWidget {
    Q_OBJECT

public:
    explicit Sheet(QWidget* window);

    /// What stands in the card, top to bottom, at the card's full width.
    void add(QWidget* widget, int stretch = 0);

    /// Takes the focus back and closes. The owner deletes the sheet.
    virtual void dismiss();

Q_SIGNALS:
    void dismissed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class Card;

    void place();

    Card* m_card;
    QPointer<QWidget> m_focusBefore;
};

} // namespace tessivo
