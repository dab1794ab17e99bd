#pragma once

#include "platform/Storage.h"

namespace tessivo {

/// The user's preferences of one application. A value of another type than the one asked for is absent, and
/// stays until it is written over. A write that can't be stored puts back what was there before it.
class MacDefaults final : public Defaults {
public:
    explicit MacDefaults(std::string applicationID) : m_applicationID(std::move(applicationID)) {}

    std::optional<std::string> data(const std::string& key) const override;
    std::optional<std::string> text(const std::string& key) const override;
    std::error_code setData(const std::string& key, const std::string& bytes) override;
    std::error_code setText(const std::string& key, const std::string& text) override;
    std::error_code set(const std::vector<DefaultsEntry>& entries) override;

private:
    const std::string m_applicationID;
};

} // namespace tessivo
