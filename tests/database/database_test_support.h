// Helpers for the entity tests: a fresh drawing per test, entities made
// from lists, and chains written out as text to compare.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "host/db/session.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

namespace dbtest {

// A new drawing for each test, with the module's application registered.
class FreshDrawing : public ::testing::Test {
protected:
    void SetUp() override {
        lumo::db::CloseSessionDatabase();
        acdbRegApp("_PWH");
    }
    void TearDown() override { lumo::db::CloseSessionDatabase(); }
};

// Makes an entity (or a part of a complex one) from the list, which is
// released; the host's result.
inline int Put(resbuf* list) {
    int status = acdbEntMake(list);
    acutRelRb(list);
    return status;
}

// Makes an entity from the list (which is released) and names it.
inline bool MakeFrom(resbuf* list, ads_name out) {
    int status = acdbEntMake(list);
    acutRelRb(list);
    return status == RTNORM && acdbEntLast(out) == RTNORM;
}

inline bool MakeLine(ads_name out, const char* layer = "0") {
    const double a[3] = {0, 0, 0}, b[3] = {10, 5, 0};
    return MakeFrom(acutBuildList(RTDXF0, "LINE", 8, layer, 10, a, 11, b, 0), out);
}

// "code:value" for each node, values in a short form.
inline std::string Describe(const resbuf* chain, int limit = 1000) {
    std::string out;
    for (const resbuf* n = chain; n && limit-- > 0; n = n->rbnext) {
        if (!out.empty()) out += ' ';
        out += std::to_string(n->restype) + ':';
        switch (n->restype) {
        case 1000: case 1001: case 1002: case 1005: case 0: case 8:
            out += n->resval.rstring ? n->resval.rstring : "";
            break;
        case 1070:
            out += std::to_string(n->resval.rint);
            break;
        case 1071:
            out += std::to_string(n->resval.rlong);
            break;
        case 1040: {
            char buf[32];
            std::snprintf(buf, sizeof buf, "%g", n->resval.rreal);
            out += buf;
            break;
        }
        case 1004:
            out += std::to_string(n->resval.rbinary.clen);
            break;
        default:
            break;
        }
    }
    return out;
}

}  // namespace dbtest
