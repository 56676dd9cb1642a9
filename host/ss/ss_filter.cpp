#include "host/ss/ss_filter.h"

#include <cctype>
#include <cmath>
#include <cstring>
#include <sstream>

#include "host/ads/value_kind.h"
#include "platform/acutads.h"

namespace lumo::host {
namespace {

std::string Upper(const char* s) {
    std::string out = s ? s : "";
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

bool Compare(double a, double b, const std::string& op) {
    if (op == "*") return true;
    if (op == "=") return std::fabs(a - b) < 1e-10;
    if (op == "!=" || op == "/=" || op == "<>") return std::fabs(a - b) >= 1e-10;
    if (op == "<") return a < b;
    if (op == "<=") return a <= b;
    if (op == ">") return a > b;
    if (op == ">=") return a >= b;
    if (op == "&") return (static_cast<long>(a) & static_cast<long>(b)) != 0;
    if (op == "&=") return (static_cast<long>(a) & static_cast<long>(b)) == static_cast<long>(b);
    return false;
}

std::vector<std::string> SplitOps(const std::string& op) {
    std::vector<std::string> parts;
    std::stringstream in(op);
    for (std::string p; std::getline(in, p, ',');) parts.push_back(p);
    while (parts.size() < 3) parts.push_back(parts.empty() ? "=" : parts.back() == "=" ? "=" : parts.back());
    return parts;
}

bool MatchValue(const resbuf* e, const resbuf* f, const std::string& op) {
    switch (ValueKindOf(f->restype)) {
    case ValueKind::Text: {
        bool match = acutWcMatch(Upper(e->resval.rstring).c_str(), Upper(f->resval.rstring).c_str()) == RTNORM;
        return (op == "!=" || op == "/=" || op == "<>") ? !match : match;
    }
    case ValueKind::Real: return Compare(e->resval.rreal, f->resval.rreal, op);
    case ValueKind::Short: return Compare(e->resval.rint, f->resval.rint, op);
    case ValueKind::Long: return Compare(e->resval.rlong, f->resval.rlong, op);
    case ValueKind::Point: {
        std::vector<std::string> ops = SplitOps(op);
        for (int i = 0; i < 3; ++i)
            if (!Compare(e->resval.rpoint[i], f->resval.rpoint[i], ops[i])) return false;
        return true;
    }
    case ValueKind::Name: return std::memcmp(e->resval.rlname, f->resval.rlname, sizeof e->resval.rlname) == 0;
    default: return false;
    }
}

// Groups an entity list leaves out when they have their default value.
bool DefaultGroup(int code, resbuf& out) {
    out.rbnext = nullptr;
    out.restype = static_cast<short>(code);
    switch (code) {
    case 6: out.resval.rstring = const_cast<char*>("BYLAYER"); return true;
    case 62: out.resval.rint = 256; return true;
    case 67: case 60: out.resval.rint = 0; return true;
    case 39: out.resval.rreal = 0; return true;
    case 48: out.resval.rreal = 1; return true;
    default: return false;
    }
}

}  // namespace

bool SelectionFilter::Parse(const resbuf* filter) {
    m_root = Node{};
    const resbuf* rb = filter;
    return ParseInto(m_root, rb, "");
}

bool SelectionFilter::ParseInto(Node& parent, const resbuf*& rb, const std::string& closer) {
    while (rb) {
        if (rb->restype == -4) {
            std::string op = Upper(rb->resval.rstring);
            rb = rb->rbnext;
            if (!closer.empty() && op == closer) return true;
            if (op.size() > 1 && op[0] == '<' && std::isalpha(static_cast<unsigned char>(op[1]))) {
                Node group;
                std::string name = op.substr(1);
                group.kind = name == "AND" ? Node::And : name == "OR" ? Node::Or : name == "XOR" ? Node::Xor
                           : name == "NOT" ? Node::Not : Node::Test;
                if (group.kind == Node::Test) return false;
                if (!ParseInto(group, rb, name + ">")) return false;
                if (group.kind == Node::Not && group.kids.size() != 1) return false;
                if (group.kind == Node::Xor && group.kids.size() != 2) return false;
                parent.kids.push_back(std::move(group));
                continue;
            }
            if (!rb || rb->restype == -4) return false;
            Node test;
            test.kind = Node::Test;
            test.op = op;
            test.group = rb;
            parent.kids.push_back(std::move(test));
            rb = rb->rbnext;
            continue;
        }
        if (rb->restype == -3) {
            Node apps;
            apps.kind = Node::Apps;
            for (rb = rb->rbnext; rb && rb->restype == 1001; rb = rb->rbnext) apps.apps.push_back(Upper(rb->resval.rstring));
            parent.kids.push_back(std::move(apps));
            continue;
        }
        Node test;
        test.kind = Node::Test;
        test.group = rb;
        parent.kids.push_back(std::move(test));
        rb = rb->rbnext;
    }
    return closer.empty();  // an open group never closed
}

bool SelectionFilter::Matches(const resbuf* entity) const { return Eval(m_root, entity); }

bool SelectionFilter::Eval(const Node& node, const resbuf* entity) const {
    switch (node.kind) {
    case Node::And:
        for (const Node& k : node.kids)
            if (!Eval(k, entity)) return false;
        return true;
    case Node::Or:
        for (const Node& k : node.kids)
            if (Eval(k, entity)) return true;
        return false;
    case Node::Xor: return Eval(node.kids[0], entity) != Eval(node.kids[1], entity);
    case Node::Not: return !Eval(node.kids[0], entity);
    case Node::Apps: {
        for (const std::string& app : node.apps) {
            bool found = false;
            for (const resbuf* e = entity; e && !found; e = e->rbnext)
                found = e->restype == 1001 && acutWcMatch(Upper(e->resval.rstring).c_str(), app.c_str()) == RTNORM;
            if (!found) return false;
        }
        return true;
    }
    case Node::Test: {
        bool seen = false;
        for (const resbuf* e = entity; e && e->restype != -3; e = e->rbnext) {
            if (e->restype != node.group->restype) continue;
            seen = true;
            if (MatchValue(e, node.group, node.op)) return true;
        }
        resbuf fallback{};
        if (!seen && DefaultGroup(node.group->restype, fallback)) return MatchValue(&fallback, node.group, node.op);
        return false;
    }
    }
    return false;
}

}  // namespace lumo::host
