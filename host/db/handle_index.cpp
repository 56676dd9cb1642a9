// Handle to stub: open addressing with linear probing, kept at most half full.
#include "host/db/database_impl.h"

namespace lumo::db {

namespace {
size_t Hash(uint64_t h, size_t mask) { return static_cast<size_t>((h * 0x9E3779B97F4A7C15ull) >> 20) & mask; }
}  // namespace

AcDbStub* HandleIndex::Find(uint64_t handle) const {
    if (m_slots.empty() || handle == 0) return nullptr;
    size_t mask = m_slots.size() - 1;
    for (size_t i = Hash(handle, mask);; i = (i + 1) & mask) {
        AcDbStub* s = m_slots[i];
        if (!s) return nullptr;
        if (s->handle == handle) return s;
    }
}

void HandleIndex::Insert(AcDbStub* stub) {
    if ((m_count + 1) * 2 > m_slots.size()) Grow();
    size_t mask = m_slots.size() - 1;
    size_t i = Hash(stub->handle, mask);
    while (m_slots[i] && m_slots[i]->handle != stub->handle) i = (i + 1) & mask;
    if (!m_slots[i]) ++m_count;
    m_slots[i] = stub;
}

void HandleIndex::Remove(AcDbStub* stub) {
    if (m_slots.empty()) return;
    size_t mask = m_slots.size() - 1;
    size_t i = Hash(stub->handle, mask);
    while (m_slots[i] && m_slots[i] != stub) i = (i + 1) & mask;
    if (!m_slots[i]) return;
    m_slots[i] = nullptr;
    --m_count;
    // Shift back the run behind the hole so that lookups still find it.
    for (size_t j = (i + 1) & mask; m_slots[j]; j = (j + 1) & mask) {
        AcDbStub* s = m_slots[j];
        m_slots[j] = nullptr;
        size_t k = Hash(s->handle, mask);
        while (m_slots[k]) k = (k + 1) & mask;
        m_slots[k] = s;
    }
}

void HandleIndex::Grow() {
    std::vector<AcDbStub*> old;
    old.swap(m_slots);
    m_slots.assign(old.empty() ? 1024 : old.size() * 2, nullptr);
    size_t mask = m_slots.size() - 1;
    for (AcDbStub* s : old) {
        if (!s) continue;
        size_t i = Hash(s->handle, mask);
        while (m_slots[i]) i = (i + 1) & mask;
        m_slots[i] = s;
    }
}

}  // namespace lumo::db
