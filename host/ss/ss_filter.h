// Selection filters: the groups an entity must have, with wild cards for
// texts, -4 relational and logical operators, and -3 application names.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/adsdef.h"

namespace lumo::host {

class SelectionFilter {
public:
    // False for a malformed filter (unbalanced logical groups, an operator
    // with nothing to test).
    bool Parse(const resbuf* filter);
    // `entity` is the entity's list with its extended data behind -3.
    bool Matches(const resbuf* entity) const;
    bool Empty() const { return m_root.kids.empty(); }

private:
    struct Node {
        enum Kind { Test, And, Or, Xor, Not, Apps } kind = And;
        const resbuf* group = nullptr;
        std::string op = "=";
        std::vector<std::string> apps;
        std::vector<Node> kids;
    };
    bool ParseInto(Node& parent, const resbuf*& rb, const std::string& closer);
    bool Eval(const Node& node, const resbuf* entity) const;
    Node m_root;
};

}  // namespace lumo::host
