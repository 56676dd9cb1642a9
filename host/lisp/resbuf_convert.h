// LISP values to and from result-buffer chains, by the host's documented
// rules. Every part of the host that crosses this border uses these.
#pragma once
#include <utility>

#include "host/lisp/value.h"
#include "platform/adsdef.h"
#include "platform/acutads.h"

namespace lumo::lisp {

// Builds a chain node by node; what is not taken is released, so a LISP
// error half-way leaks nothing.
class ChainBuilder {
public:
    ChainBuilder() = default;
    ChainBuilder(const ChainBuilder&) = delete;
    ChainBuilder& operator=(const ChainBuilder&) = delete;
    ~ChainBuilder() { acutRelRb(m_head); }

    resbuf* Add(int type) {
        resbuf* node = acutNewRb(type);
        *m_link = node;
        m_link = &node->rbnext;
        return node;
    }
    resbuf* Take() { m_link = &m_head; return std::exchange(m_head, nullptr); }
    const resbuf* Chain() const { return m_head; }
private:
    resbuf* m_head = nullptr;
    resbuf** m_link = &m_head;
};

// Arguments of a call into a module: integers in 16-bit range RTSHORT,
// larger RTLONG; a list of exactly two or three reals one RTPOINT/RT3DPOINT
// node; other lists RTLB ... RTLE; a dotted pair RTLB car RTDOTE cdr RTLE;
// T RTT; nil RTNIL; other symbols RTSTR of their name; (princ)'s value RTVOID;
// functions and files RTNONE. The chain is the caller's to release.
resbuf* ToResbufChain(Args values);
resbuf* ToResbuf(const Ref& value);

// One node of an RT type as a LISP value.
Ref FromResbufNode(const resbuf* node);
// A chain as acedRetList gives it back: each top-level value in turn, the
// whole chain as a list; a chain that is exactly one RTLB...RTLE is that
// list itself.
Ref FromResbufChain(const resbuf* chain);

// The top-level values of a chain, in order.
Ref ValuesOfChain(const resbuf* chain);

// Entity-data lists: each node of a DXF group code is (code . value), points
// (code x y z); a -3 node opens the extended data, grouped by 1001 names.
Ref FromEntityChain(const resbuf* chain);
// The reverse; false (and no chain) if an item is no valid group.
bool ToEntityChain(const Ref& list, resbuf** out);
// The value of a group-code node, and setting one from a LISP value.
Ref GroupValue(const resbuf* node);
bool SetGroupValue(resbuf* node, const Ref& value);

}  // namespace lumo::lisp
