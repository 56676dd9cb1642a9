// The host's filer: the stream through which a database object writes and
// reads its own data. Each call reports the filer's status; after a failure
// the filer keeps that status until it is reset.
#pragma once
#include <cstdint>

#include "platform/acge.h"
#include "platform/dbmain.h"

class AcDbDwgFiler : public AcRxObject {
public:
    ~AcDbDwgFiler() override = default;

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
    virtual void resetFilerStatus() = 0;

    virtual Acad::ErrorStatus readBool(bool* value) = 0;
    virtual Acad::ErrorStatus writeBool(bool value) = 0;
    virtual Acad::ErrorStatus readInt8(int8_t* value) = 0;
    virtual Acad::ErrorStatus writeInt8(int8_t value) = 0;
    virtual Acad::ErrorStatus readUInt8(uint8_t* value) = 0;
    virtual Acad::ErrorStatus writeUInt8(uint8_t value) = 0;
    virtual Acad::ErrorStatus readInt16(int16_t* value) = 0;
    virtual Acad::ErrorStatus writeInt16(int16_t value) = 0;
    virtual Acad::ErrorStatus readInt32(int32_t* value) = 0;
    virtual Acad::ErrorStatus writeInt32(int32_t value) = 0;
    virtual Acad::ErrorStatus readDouble(double* value) = 0;
    virtual Acad::ErrorStatus writeDouble(double value) = 0;
    virtual Acad::ErrorStatus readPoint2d(AcGePoint2d* value) = 0;
    virtual Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) = 0;
    virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* value) = 0;
    virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) = 0;
    virtual Acad::ErrorStatus readBytes(void* buffer, uint32_t count) = 0;
    virtual Acad::ErrorStatus writeBytes(const void* buffer, uint32_t count) = 0;
};
