#include "kit/report/HistoryStore.h"
#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"

namespace tessivo {

std::string HistoryStore::encode(const ConditionReport& report) {
    return Json::write(report, Json::Layout::prettySorted, Json::DateForm::iso8601);
}

ConditionReport HistoryStore::decode(std::string_view bytes) {
    return Json::read<ConditionReport>(bytes, Json::DateForm::iso8601);
}

} // namespace tessivo
