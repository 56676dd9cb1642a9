// Records to and from result-buffer chains.
#include "host/db/resbuf_sink.h"

#include <cstring>

#include "host/db/stub.h"
#include "platform/acutads.h"
#include "platform/crt.h"

namespace lumo::db {

ResbufSink::~ResbufSink() { acutRelRb(m_head); }

resbuf* ResbufSink::Take() {
    resbuf* head = m_head;
    m_head = m_tail = nullptr;
    return head;
}

resbuf* ResbufSink::Add(int code) {
    resbuf* node = acutNewRb(code);
    if (!m_head) m_head = node;
    else m_tail->rbnext = node;
    m_tail = node;
    return node;
}

void ResbufSink::Text(int code, std::string_view text) {
    resbuf* node = Add(code);
    ValueKind kind = host::ValueKindOf(code);
    if (kind == ValueKind::Text) {
        auto* s = static_cast<char*>(std::malloc(text.size() + 1));
        std::memcpy(s, text.data(), text.size());
        s[text.size()] = '\0';
        node->resval.rstring = s;
    } else if (kind == ValueKind::Binary) {
        std::string bytes = HexToBytes(text);
        node->resval.rbinary.clen = static_cast<short>(bytes.size());
        node->resval.rbinary.buf = static_cast<char*>(std::malloc(bytes.size() + 1));
        std::memcpy(node->resval.rbinary.buf, bytes.data(), bytes.size());
    }
}

void ResbufSink::Real(int code, double value) { Add(code)->resval.rreal = value; }

void ResbufSink::Point(int code, const double* p, int dims) {
    resbuf* node = Add(code);
    node->resval.rpoint[0] = p[0];
    node->resval.rpoint[1] = p[1];
    node->resval.rpoint[2] = dims > 2 ? p[2] : 0.0;
}

void ResbufSink::Int(int code, int64_t value) {
    resbuf* node = Add(code);
    ValueKind kind = host::ValueKindOf(code);
    if (kind == ValueKind::Long) node->resval.rlong = static_cast<int32_t>(value);
    else if (kind == ValueKind::Short) node->resval.rint = static_cast<short>(value);
}

void ResbufSink::Ref(int code, AcDbStub* stub) { NameOf(stub, Add(code)->resval.rlname); }

void ResbufSink::Binary(int code, std::string_view hex) { Text(code, hex); }

bool TagsFromChain(const resbuf* chain, std::vector<Tag>& out, std::deque<std::string>& scratch) {
    for (const resbuf* rb = chain; rb; rb = rb->rbnext) {
        Tag t;
        t.code = rb->restype;
        t.kind = TagKind(rb->restype);
        switch (t.kind) {
        case ValueKind::Text: t.s = rb->resval.rstring ? rb->resval.rstring : ""; break;
        case ValueKind::Real: t.v[0] = rb->resval.rreal; break;
        case ValueKind::Point:
            std::memcpy(t.v, rb->resval.rpoint, sizeof t.v);
            t.dims = 3;
            break;
        case ValueKind::Short: t.i = rb->resval.rint; break;
        case ValueKind::Long: t.i = rb->resval.rlong; break;
        case ValueKind::Name:
            t.ref = StubFromName(rb->resval.rlname);
            if (!t.ref && (rb->resval.rlname[0] || rb->resval.rlname[1])) return false;
            break;
        case ValueKind::Binary:
            scratch.push_back(BytesToHex(std::string_view(rb->resval.rbinary.buf ? rb->resval.rbinary.buf : "",
                                                          rb->resval.rbinary.buf ? rb->resval.rbinary.clen : 0)));
            t.s = scratch.back();
            break;
        case ValueKind::None:
            if (rb->restype != -3) return false;
            break;
        }
        out.push_back(t);
    }
    return true;
}

}  // namespace lumo::db
