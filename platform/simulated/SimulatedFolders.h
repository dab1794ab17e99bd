#pragma once

#include "platform/Storage.h"

#include <QTemporaryDir>

namespace tessivo {

/// The given folders, or a temporary one that goes with the object.
class SimulatedFolders final : public Folders {
public:
    explicit SimulatedFolders(std::optional<std::vector<std::filesystem::path>> given)
        : m_given(std::move(given)) {
        if (m_given) return;
        m_temporary.emplace();
        m_given.emplace();
        if (m_temporary->isValid()) m_given->push_back(m_temporary->path().toStdString());
    }

    std::vector<std::filesystem::path> applicationSupport() const override { return *m_given; }

private:
    std::optional<QTemporaryDir> m_temporary;
    std::optional<std::vector<std::filesystem::path>> m_given;
};

} // namespace tessivo
