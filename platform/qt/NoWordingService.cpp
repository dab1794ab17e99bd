#include "platform/qt/NoWordingService.h"

#include <stdexcept>

namespace tessivo {
namespace {

class NoWordingModel final : public WordingModel {
public:
    std::string rewrite(const std::string&, const std::string&) override {
        throw std::runtime_error("There is no language model on this computer.");
    }
};

} // namespace

std::shared_ptr<WordingModel> NoWordingService::makeModel() {
    return std::make_shared<NoWordingModel>();
}

} // namespace tessivo
