#pragma once

#include "app/model/AppModel.h"
#include "kit/Samples.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {

/// A model on a simulated laptop, whose clock is moved by hand.
class AppModelTests : public testing::Test {
protected:
    static constexpr int patience = 5000; // milliseconds that another thread may take

    AppModel& model() {
        if (!m_model) m_model = std::make_unique<AppModel>(mac);
        return *m_model;
    }
    void letGo() { m_model.reset(); }

    std::string stored() { return mac.defaults().data("session").value_or("nothing"); }
    void store(const SessionState& session, const std::string& notes = "kept") {
        mac.defaults().setData("session", session.encode());
        mac.defaults().setText("notes", notes);
    }
    bool finishReading() {
        return QTest::qWaitFor([this] { return !model().reading(); }, patience);
    }

    ManualScheduler clock{Date{700'000'000.125}};
    SimulatedPlatform mac{loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock};
    SimulatedControls controls{mac};

private:
    std::unique_ptr<AppModel> m_model;
};

/// A session with answers, of the simulated laptop.
inline SessionState answered() {
    SessionState session = Samples::session();
    session.machine.serial = "FK2X91TQ7W";
    return session;
}

} // namespace tessivo
