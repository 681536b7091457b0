#pragma once

// The numbers of the host's own texts, those that no report names.
namespace quillo::HostText {

inline constexpr int sortedBy = 20101, sortedByAlone = 20102, segments = 20103;

// What a mark in a filter reads.
inline constexpr int yes = 20221, no = 20222;

// A filter in words; %1 is the column, %2 and %3 are values.
inline constexpr int between = 20110, notBetween = 20111, like = 20112, notLike = 20113, isIn = 20114, isNotIn = 20115,
                     isEmpty = 20116, isNotEmpty = 20117, equals = 20118, differs = 20119, below = 20120,
                     atMost = 20121, above = 20122, atLeast = 20123, startsWith = 20124, contains = 20125, both = 20126,
                     either = 20127, negation = 20128, descending = 20129;

// What stands behind the last page, and below each page of a report that has failures.
inline constexpr int failureFoot = 20441, failures = 20442, failuresLead = 20443, moreFailures = 20444,
                     failureTimes = 20445, wholeFilter = 20446;

}  // namespace quillo::HostText
