// Records to and from result-buffer chains (entget, entmake, extended data).
#pragma once
#include <deque>
#include <string>
#include <vector>

#include "host/db/tags.h"
#include "platform/adsdef.h"

namespace lumo::db {

// Builds a chain whose restype is each group's code; references become
// entity names, binary groups ads_binary.
class ResbufSink : public TagSink {
public:
    explicit ResbufSink(Flavor flavor = Flavor::Entget) : TagSink(flavor) {}
    ~ResbufSink() override;
    ResbufSink(const ResbufSink&) = delete;
    ResbufSink& operator=(const ResbufSink&) = delete;
    // The chain built so far; the caller releases it.
    resbuf* Take();

    void Text(int code, std::string_view text) override;
    void Real(int code, double value) override;
    void Point(int code, const double* p, int dims) override;
    void Int(int code, int64_t value) override;
    void Ref(int code, AcDbStub* stub) override;
    void Binary(int code, std::string_view hex) override;

private:
    resbuf* Add(int code);
    resbuf* m_head = nullptr;
    resbuf* m_tail = nullptr;
};

// The groups of a chain as tags. Texts point into the chain, converted
// binary data into `scratch`; both must outlive the tags. False for a node
// that is no group (a LISP type code, a name that isn't one).
bool TagsFromChain(const resbuf* chain, std::vector<Tag>& out, std::deque<std::string>& scratch);

}  // namespace lumo::db
