// A filer over a byte buffer for the stream-form tests.
#pragma once
#include <cstring>
#include <vector>

#include "platform/dbfiler.h"

class MemoryFiler : public AcDbDwgFiler {
public:
    Acad::ErrorStatus filerStatus() const override { return m_status; }
    void setFilerStatus(Acad::ErrorStatus s) override { m_status = s; }
    void resetFilerStatus() override { m_status = Acad::eOk; }
    void Rewind() { m_pos = 0; }
    size_t Size() const { return m_bytes.size(); }
    std::vector<unsigned char>& Bytes() { return m_bytes; }

    Acad::ErrorStatus readBool(bool* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeBool(bool v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readInt8(int8_t* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeInt8(int8_t v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readUInt8(uint8_t* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeUInt8(uint8_t v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readInt16(int16_t* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeInt16(int16_t v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readInt32(int32_t* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeInt32(int32_t v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readDouble(double* v) override { return Get(v, sizeof *v); }
    Acad::ErrorStatus writeDouble(double v) override { return Put(&v, sizeof v); }
    Acad::ErrorStatus readPoint2d(AcGePoint2d* v) override {
        double xy[2];
        if (Get(xy, sizeof xy) != Acad::eOk) return m_status;
        v->set(xy[0], xy[1]);
        return m_status;
    }
    Acad::ErrorStatus writePoint2d(const AcGePoint2d& v) override {
        double xy[2] = {v.x, v.y};
        return Put(xy, sizeof xy);
    }
    Acad::ErrorStatus readPoint3d(AcGePoint3d* v) override {
        double p[3];
        if (Get(p, sizeof p) != Acad::eOk) return m_status;
        v->set(p[0], p[1], p[2]);
        return m_status;
    }
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& v) override {
        double p[3] = {v.x, v.y, v.z};
        return Put(p, sizeof p);
    }
    Acad::ErrorStatus readBytes(void* b, uint32_t n) override { return Get(b, n); }
    Acad::ErrorStatus writeBytes(const void* b, uint32_t n) override { return Put(b, n); }

private:
    Acad::ErrorStatus Get(void* out, size_t n) {
        if (m_status != Acad::eOk) return m_status;
        if (m_pos + n > m_bytes.size()) return m_status = Acad::eFilerError;
        std::memcpy(out, m_bytes.data() + m_pos, n);
        m_pos += n;
        return m_status;
    }
    Acad::ErrorStatus Put(const void* in, size_t n) {
        if (m_status != Acad::eOk) return m_status;
        const auto* p = static_cast<const unsigned char*>(in);
        m_bytes.insert(m_bytes.end(), p, p + n);
        return m_status;
    }

    std::vector<unsigned char> m_bytes;
    size_t m_pos = 0;
    Acad::ErrorStatus m_status = Acad::eOk;
};
