#pragma once

#include <unordered_map>

#include "framework/report_factory.h"

namespace quillo {

// Which lines of kits print. The host is asked once a kit, since its lines come back wherever the order takes them.
class KitLines {
public:
    explicit KitLines(HostContext& context) : rule_(context) {}

    // As clsReport::ShowItemLine.
    bool isShown(int kit, bool isKit) {
        if (kit == 0) return true;
        auto& answers = isKit ? ownLines_ : components_;
        const auto known = answers.find(kit);
        if (known != answers.end()) return known->second;
        return answers.emplace(kit, rule_.ShowItemLine(kit, isKit)).first->second;
    }

private:
    clsReport rule_;
    std::unordered_map<int, bool> ownLines_, components_;
};

}  // namespace quillo
