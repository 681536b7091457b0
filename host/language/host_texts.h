#pragma once

// The numbers of the host's own texts, those that no report names.
namespace quillo::HostText {

inline constexpr int sortedBy = 20201, sortedByAlone = 20202, segments = 20203;

// A filter in words; %1 is the column, %2 and %3 are values.
inline constexpr int between = 20210, notBetween = 20211, like = 20212, notLike = 20213, isIn = 20214, isNotIn = 20215, isEmpty = 20216,
                     isNotEmpty = 20217, equals = 20218, differs = 20219, below = 20220, atMost = 20221, above = 20222, atLeast = 20223,
                     startsWith = 20224, contains = 20225, both = 20226, either = 20227, negation = 20228, descending = 20229;

}  // namespace quillo::HostText
