#include "kit/support/JsonReader.h"
#include "kit/support/PropertyJson.h"
#include "kit/support/Text.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tessivo {
namespace {

struct Shape {
    std::string text;
    std::string outcome;
};

/// "<FF>" is that byte and "<900*[>" is "[" nine hundred times; everything else stands for itself.
std::string expanded(std::string_view row) {
    std::string text;
    for (std::size_t at = 0; at < row.size(); ++at) {
        if (row[at] != '<') {
            text += row[at];
            continue;
        }
        const std::size_t end = std::min(row.find('>', at), row.size());
        const std::string inside(row.substr(at + 1, end - at - 1));
        if (const std::size_t star = inside.find('*'); star == std::string::npos) {
            text += char(std::stoi(inside, nullptr, 16));
        } else {
            const std::string piece = expanded(inside.substr(star + 1));
            for (int left = std::stoi(inside); left > 0; --left)
                text += piece;
        }
        at = end;
    }
    return text;
}

/// The rows "shape ⇒ outcome" of a file of tests/data/json.
std::vector<Shape> shapes(const char* name) {
    std::ifstream file(std::string(TESSIVO_TEST_DATA "/json/") + name);
    const std::string arrow = " ⇒ ";
    std::vector<Shape> rows;
    for (std::string line; std::getline(file, line);) {
        const std::size_t at = line.find(arrow);
        if (at == std::string::npos) continue; // a heading
        rows.push_back({expanded(line.substr(0, at)), expanded(line.substr(at + arrow.size()))});
    }
    return rows;
}

/// The map on one line as it is written, or why there is none.
std::string readAsMap(const std::string& json) {
    try {
        std::istringstream pretty(prettyText(parsePropertyMap(json)));
        std::string line;
        for (std::string part; std::getline(pretty, part);)
            line += Text::trimmedBlanks(part);
        return line;
    } catch (const DecodingError& error) {
        return std::string("✗ ") + error.what();
    }
}

struct Stranger {
    std::optional<bool> unheardOf;
};
BOOST_DESCRIBE_STRUCT(Stranger, (), (unheardOf))

/// "read" by a record that knows none of its keys, or why it isn't.
std::string readAsRecord(const std::string& json) {
    try {
        Json::read<Stranger>(json, Json::DateForm::number);
        return "read";
    } catch (const DecodingError& error) {
        return std::string("✗ ") + error.what();
    }
}

/// A number beyond all doubles refuses a map; a record passes over it under a key that it doesn't know.
void expectOutcome(const std::string& json, const Shape& shape, const std::string& read) {
    SCOPED_TRACE(shape.text.substr(0, 60));
    const bool isRefused = shape.outcome.starts_with("✗");
    EXPECT_EQ(readAsRecord(json), isRefused ? shape.outcome : "read");
    if (shape.outcome == "too large") {
        EXPECT_TRUE(readAsMap(json).ends_with(": out of range"));
    } else if (isRefused) {
        EXPECT_TRUE(readAsMap(json).starts_with("✗"));
    } else {
        EXPECT_EQ(readAsMap(json), read);
    }
}

TEST(JsonShapes, whatStandsUnderAKey) {
    const std::vector<Shape> rows = shapes("values.txt");
    ASSERT_GE(rows.size(), 318u);
    for (const Shape& row : rows)
        expectOutcome("{\"key\": " + row.text + "}", row, "{\"key\": " + row.outcome + "}");
}

TEST(JsonShapes, whatStandsInAFile) {
    const std::vector<Shape> rows = shapes("documents.txt");
    ASSERT_FALSE(rows.empty());
    for (const Shape& row : rows)
        expectOutcome(row.text, row, row.outcome);
}

} // namespace
} // namespace tessivo
