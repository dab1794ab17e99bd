#pragma once

#include "kit/report/ComparedItem.h"
#include "kit/report/ConditionReport.h"
#include "kit/report/MachineComparison.h"

namespace tessivo {

/// What differs between two reports, in words: a seller's report and one made at pickup, say. It compares
/// words with words and proves nothing about the files. Plain value, any thread; made in time that grows with
/// the reports' length and no faster.
struct ReportComparison {
    /// The answer in short; the first that fits, in this order.
    enum class Verdict { anotherMac, contradicting, nothingTested, worse, cantTell, notAllRunAgain, allWork };
    BOOST_DESCRIBE_NESTED_ENUM(Verdict, anotherMac, contradicting, nothingTested, worse, cantTell,
                               notAllRunAgain, allWork)

    struct Side {
        Uuid id;
        Date created;
        std::string name; ///< of the Mac: "MacBook Air (M2, 2022)"

        bool operator==(const Side&) const = default;
    };

    Side before; ///< the older report, whichever was given first
    Side after;
    SameMac sameMac = SameMac::cantTell;
    /// Whether anything was tested after the older report.
    bool testedSince = false;
    Verdict verdict = Verdict::cantTell;
    std::string verdictText; ///< one sentence or two
    /// What says which Mac it is: serial number, model, and memory of one size.
    std::vector<ComparedItem> identity;
    std::vector<ComparedItem> items;     ///< the differences, the gravest first
    std::vector<ComparedItem> unchanged; ///< the other tests, in their order
    /// The tests that worked then and work now, and those whose outcome of then stands unconfirmed.
    std::vector<TestID> confirmed;
    std::vector<TestID> notConfirmed;
    /// Of two files: the tests in `confirmed` that a person runs and that read the same to the last detail.
    /// Nothing shows whether they were run again. Empty where the session's start is known.
    std::vector<TestID> readAlike;

    /// `sessionStarted` is when the session began that `other` was made from, where somebody knows: one that
    /// began before the older report was made confirms nothing. Two files don't tell. There something counts
    /// as tested since where the later file was made later, and a test that a person runs reads differently
    /// in any word, or something is worse; equal words are taken for the same tests written out twice. Then
    /// every test that works in both counts as confirmed, and `readAlike` has those of which nothing shows
    /// it.
    static ReportComparison make(const ConditionReport& one, const ConditionReport& other,
                                 std::optional<Date> sessionStarted = {});

    /// The same Mac, nothing worse, and every test that worked then works now, at least one.
    bool isPass() const;
    std::int64_t count(Change change) const; ///< of `items`
    /// How many of `unchanged` are folded: "11 tests unchanged".
    std::int64_t foldedCount() const;

    bool operator==(const ReportComparison&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReportComparison::Side, (), (id, created, name))
BOOST_DESCRIBE_STRUCT(ReportComparison, (),
                      (before, after, sameMac, testedSince, verdict, verdictText, identity, items, unchanged,
                       confirmed, notConfirmed, readAlike))

} // namespace tessivo
