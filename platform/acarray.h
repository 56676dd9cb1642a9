// The host's growable array. It keeps a logical length (the elements in use)
// apart from a physical length (the elements allocated); elements between the
// two keep whatever value they last had, as the host's arrays do.
#pragma once
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

template <class T>
class AcArray {
public:
    explicit AcArray(int physicalLength = 0, int growLength = 8)
        : mGrowLen(growLength > 0 ? growLength : 8) {
        if (physicalLength > 0) setPhysicalLength(physicalLength);
    }
    AcArray(const AcArray& other) : mGrowLen(other.mGrowLen) { copyFrom(other); }
    AcArray(AcArray&& other) noexcept { swapWith(other); }
    ~AcArray() { delete[] mArray; }

    AcArray& operator=(const AcArray& other) {
        if (this != &other) {
            setLogicalLength(0);
            copyFrom(other);
        }
        return *this;
    }
    AcArray& operator=(AcArray&& other) noexcept {
        if (this != &other) swapWith(other);
        return *this;
    }
    bool operator==(const AcArray& other) const {
        if (mLogicalLen != other.mLogicalLen) return false;
        for (int i = 0; i < mLogicalLen; ++i)
            if (!(mArray[i] == other.mArray[i])) return false;
        return true;
    }

    T& operator[](int i) { check(i); return mArray[i]; }
    const T& operator[](int i) const { check(i); return mArray[i]; }
    T& at(int i) { check(i); return mArray[i]; }
    const T& at(int i) const { check(i); return mArray[i]; }
    AcArray& setAt(int i, const T& value) { check(i); mArray[i] = value; return *this; }
    T& first() { return at(0); }
    const T& first() const { return at(0); }
    T& last() { return at(mLogicalLen - 1); }
    const T& last() const { return at(mLogicalLen - 1); }

    // Returns the index of the new element.
    int append(const T& value) {
        if (mLogicalLen >= mPhysicalLen) {
            T copy = value;   // value may live in this array
            reserveFor(mLogicalLen + 1);
            mArray[mLogicalLen] = std::move(copy);
        } else {
            mArray[mLogicalLen] = value;
        }
        return mLogicalLen++;
    }
    AcArray& append(const AcArray& other) {
        if (&other == this) {
            AcArray copy(other);
            return append(copy);
        }
        reserveFor(mLogicalLen + other.mLogicalLen);
        for (int i = 0; i < other.mLogicalLen; ++i) mArray[mLogicalLen++] = other.mArray[i];
        return *this;
    }
    AcArray& insertAt(int index, const T& value) {
        if (index < 0 || index > mLogicalLen) fail("insertAt", index);
        T copy = value;
        reserveFor(mLogicalLen + 1);
        for (int i = mLogicalLen; i > index; --i) mArray[i] = std::move(mArray[i - 1]);
        mArray[index] = std::move(copy);
        ++mLogicalLen;
        return *this;
    }
    AcArray& removeAt(int index) {
        check(index);
        for (int i = index; i + 1 < mLogicalLen; ++i) mArray[i] = std::move(mArray[i + 1]);
        --mLogicalLen;
        return *this;
    }
    // Removes the elements from start to end, both included.
    AcArray& removeSubArray(int start, int end) {
        check(start);
        check(end);
        if (end < start) return *this;
        int count = end - start + 1;
        for (int i = start; i + count < mLogicalLen; ++i) mArray[i] = std::move(mArray[i + count]);
        mLogicalLen -= count;
        return *this;
    }
    bool remove(const T& value, int start = 0) {
        int at = -1;
        if (!find(value, at, start)) return false;
        removeAt(at);
        return true;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { check(mLogicalLen - 1); --mLogicalLen; return *this; }
    AcArray& removeAll() { mLogicalLen = 0; return *this; }

    bool contains(const T& value, int start = 0) const { int at; return find(value, at, start); }
    bool find(const T& value, int& foundAt, int start = 0) const {
        for (int i = std::max(start, 0); i < mLogicalLen; ++i) {
            if (mArray[i] == value) {
                foundAt = i;
                return true;
            }
        }
        return false;
    }
    int find(const T& value) const { int at = -1; return find(value, at, 0) ? at : -1; }

    int length() const { return mLogicalLen; }
    int logicalLength() const { return mLogicalLen; }
    int physicalLength() const { return mPhysicalLen; }
    bool isEmpty() const { return mLogicalLen == 0; }
    int growLength() const { return mGrowLen; }
    AcArray& setGrowLength(int n) { if (n > 0) mGrowLen = n; return *this; }

    // Growing past the physical length reallocates; new elements beyond the
    // old logical length are whatever the storage holds (default-made when new).
    AcArray& setLogicalLength(int n) {
        if (n < 0) n = 0;
        if (n > mPhysicalLen) reserveFor(n);
        mLogicalLen = n;
        return *this;
    }
    // Shrinking below the logical length cuts the logical length too.
    AcArray& setPhysicalLength(int n) {
        if (n < 0) n = 0;
        if (n == mPhysicalLen) return *this;
        T* fresh = n > 0 ? new T[n] : nullptr;
        int keep = std::min(mLogicalLen, n);
        for (int i = 0; i < keep; ++i) fresh[i] = std::move(mArray[i]);
        delete[] mArray;
        mArray = fresh;
        mPhysicalLen = n;
        mLogicalLen = keep;
        return *this;
    }

    AcArray& setAll(const T& value) {
        for (int i = 0; i < mLogicalLen; ++i) mArray[i] = value;
        return *this;
    }
    AcArray& reverse() {
        std::reverse(mArray, mArray + mLogicalLen);
        return *this;
    }
    AcArray& swap(int i, int j) {
        check(i);
        check(j);
        std::swap(mArray[i], mArray[j]);
        return *this;
    }

    T* asArrayPtr() { return mArray; }
    const T* asArrayPtr() const { return mArray; }
    T* begin() { return mArray; }
    T* end() { return mArray + mLogicalLen; }
    const T* begin() const { return mArray; }
    const T* end() const { return mArray + mLogicalLen; }

private:
    // Grows by the grow length at least, doubling while the block is small and
    // by fixed 64 KiB steps after that.
    void reserveFor(int needed) {
        if (needed <= mPhysicalLen) return;
        constexpr long kStepBytes = 0x10000;
        long bytes = static_cast<long>(mPhysicalLen) * static_cast<long>(sizeof(T));
        int growth = bytes < kStepBytes ? mPhysicalLen : static_cast<int>(kStepBytes / sizeof(T));
        int size = mPhysicalLen + std::max(growth, mGrowLen);
        setPhysicalLength(std::max(size, needed));
    }
    void copyFrom(const AcArray& other) {
        reserveFor(other.mLogicalLen);
        for (int i = 0; i < other.mLogicalLen; ++i) mArray[i] = other.mArray[i];
        mLogicalLen = other.mLogicalLen;
    }
    void swapWith(AcArray& other) noexcept {
        std::swap(mArray, other.mArray);
        std::swap(mPhysicalLen, other.mPhysicalLen);
        std::swap(mLogicalLen, other.mLogicalLen);
        std::swap(mGrowLen, other.mGrowLen);
    }
    void check([[maybe_unused]] int i) const {
#ifdef LUMO_HOST_CHECKS
        if (i < 0 || i >= mLogicalLen) fail("index", i);
#endif
    }
    [[noreturn]] void fail(const char* what, int i) const {
        std::fprintf(stderr, "AcArray: %s %d outside the logical length %d\n", what, i, mLogicalLen);
        std::abort();
    }

    T* mArray = nullptr;
    int mPhysicalLen = 0;
    int mLogicalLen = 0;
    int mGrowLen = 8;
};
