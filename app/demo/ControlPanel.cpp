#include "app/demo/ControlPanel.h"

#include "app/demo/Groups.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tessivo::demo {

namespace {

constexpr QSize panelSize(450, 780);

} // namespace

ControlPanel::ControlPanel(const QStringList& machines, FeedServer& server)
    : m_server(server), m_machine(new QComboBox), m_area(new QScrollArea) {
    setWindowTitle("Simulated Mac");
    resize(panelSize);
    auto* what = new QLabel("These controls stand in for the machine. They aren’t part of Tessivo.");
    what->setWordWrap(true);
    m_machine->addItems(machines);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFrameShape(QFrame::NoFrame);
    auto* column = new QVBoxLayout(this);
    column->addWidget(what);
    auto* form = new QFormLayout;
    form->addRow("Machine", m_machine);
    column->addLayout(form);
    column->addWidget(m_area, 1);
    connect(m_machine, &QComboBox::activated, this, [this] { Q_EMIT chosen(m_machine->currentText()); });
}

void ControlPanel::letGo() {
    delete m_area->takeWidget();
}

void ControlPanel::show(const QString& machine, SimulatedControls& controls) {
    letGo();
    m_machine->setCurrentText(machine);
    auto* groups = new QWidget;
    auto* column = new QVBoxLayout(groups);
    for (QGroupBox* group :
         {trackpadGroup(controls), usbGroup(controls), headphonesGroup(controls), ethernetGroup(controls),
          microphoneGroup(controls), cameraGroup(controls), batteryGroup(controls), enrollmentGroup(controls),
          updatesGroup(controls, m_server), wordingGroup(controls), diskGroup(controls),
          activityGroup(controls)})
        column->addWidget(group);
    column->addStretch();
    m_area->setWidget(groups);
    QWidget::show();
}

void ControlPanel::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT closed();
}

} // namespace tessivo::demo
