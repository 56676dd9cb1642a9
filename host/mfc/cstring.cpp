// CString: the MFC string class over a length-prefixed byte buffer.
//
// Invariant: m_pchData points just behind a Data header, either of a heap
// block this object alone owns or of the shared empty text, which is never
// written. Every change that may grow the text goes through AllocBuffer or
// GetBuffer, which leave a private block behind.
#include "platform/afxstr.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/crt.h"

struct CString::Data {
    int nDataLength;   // bytes of text, the terminator not counted
    int nAllocLength;  // bytes of room, the terminator not counted
    char* text() { return reinterpret_cast<char*>(this + 1); }
};

namespace {

struct EmptyBlock {
    CString::Data data{0, 0};
    char text[1] = {0};
};

// Shared by every empty CString; its text is the one byte 0.
EmptyBlock gEmpty;

int Length(const char* text) { return text ? static_cast<int>(std::strlen(text)) : 0; }

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

}  // namespace

CString::Data* CString::GetData() const { return reinterpret_cast<Data*>(m_pchData) - 1; }

void CString::AllocBuffer(int length) {
    if (length <= 0) {
        m_pchData = gEmpty.text;
        return;
    }
    void* block = ::operator new(sizeof(Data) + static_cast<size_t>(length) + 1);
    Data* d = static_cast<Data*>(block);
    d->nDataLength = length;
    d->nAllocLength = length;
    d->text()[length] = 0;
    m_pchData = d->text();
}

void CString::Release() {
    if (m_pchData != gEmpty.text) ::operator delete(GetData());
    m_pchData = gEmpty.text;
}

void CString::Assign(const char* text, int length) {
    if (length > 0 && GetData()->nAllocLength >= length && m_pchData != gEmpty.text) {
        std::memmove(m_pchData, text, static_cast<size_t>(length));
        SetLength(length);
        return;
    }
    CString copy;
    copy.AllocBuffer(length);
    if (length > 0) std::memcpy(copy.m_pchData, text, static_cast<size_t>(length));
    std::swap(m_pchData, copy.m_pchData);
}

void CString::Concat(const char* a, int la, const char* b, int lb) {
    CString joined;
    joined.AllocBuffer(la + lb);
    if (la > 0) std::memcpy(joined.m_pchData, a, static_cast<size_t>(la));
    if (lb > 0) std::memcpy(joined.m_pchData + la, b, static_cast<size_t>(lb));
    std::swap(m_pchData, joined.m_pchData);
}

void CString::SetLength(int length) {
    if (m_pchData == gEmpty.text) return;
    GetData()->nDataLength = length;
    m_pchData[length] = 0;
}

CString::CString() : m_pchData(gEmpty.text) {}
CString::CString(const CString& source) : m_pchData(gEmpty.text) { Assign(source.m_pchData, source.GetLength()); }
CString::CString(CString&& source) noexcept : m_pchData(source.m_pchData) { source.m_pchData = gEmpty.text; }
CString::CString(LPCTSTR text) : m_pchData(gEmpty.text) { Assign(text, Length(text)); }
CString::CString(LPCTSTR text, int length) : m_pchData(gEmpty.text) {
    if (text && length > 0) Assign(text, length);
}
CString::CString(TCHAR ch, int repeat) : m_pchData(gEmpty.text) {
    if (repeat <= 0) return;
    AllocBuffer(repeat);
    std::memset(m_pchData, ch, static_cast<size_t>(repeat));
}
CString::~CString() { Release(); }

int CString::GetLength() const { return GetData()->nDataLength; }
void CString::Empty() { Release(); }
TCHAR CString::GetAt(int index) const { return m_pchData[index]; }
void CString::SetAt(int index, TCHAR ch) {
    if (index >= 0 && index < GetLength()) m_pchData[index] = ch;
}

CString& CString::operator=(const CString& source) {
    if (this != &source) Assign(source.m_pchData, source.GetLength());
    return *this;
}
CString& CString::operator=(CString&& source) noexcept {
    if (this != &source) {
        Release();
        std::swap(m_pchData, source.m_pchData);
    }
    return *this;
}
CString& CString::operator=(LPCTSTR text) {
    // The text may lie in this very buffer: Assign copies before freeing.
    Assign(text, Length(text));
    return *this;
}
CString& CString::operator=(TCHAR ch) {
    Assign(&ch, 1);
    return *this;
}
CString& CString::operator+=(const CString& text) {
    Concat(m_pchData, GetLength(), text.m_pchData, text.GetLength());
    return *this;
}
CString& CString::operator+=(LPCTSTR text) {
    Concat(m_pchData, GetLength(), text, Length(text));
    return *this;
}
CString& CString::operator+=(TCHAR ch) {
    Concat(m_pchData, GetLength(), &ch, 1);
    return *this;
}

CString operator+(const CString& a, const CString& b) {
    CString s;
    s.Concat(a.m_pchData, a.GetLength(), b.m_pchData, b.GetLength());
    return s;
}
CString operator+(const CString& a, LPCTSTR b) {
    CString s;
    s.Concat(a.m_pchData, a.GetLength(), b, Length(b));
    return s;
}
CString operator+(LPCTSTR a, const CString& b) {
    CString s;
    s.Concat(a, Length(a), b.m_pchData, b.GetLength());
    return s;
}
CString operator+(const CString& a, TCHAR b) {
    CString s;
    s.Concat(a.m_pchData, a.GetLength(), &b, 1);
    return s;
}
CString operator+(TCHAR a, const CString& b) {
    CString s;
    s.Concat(&a, 1, b.m_pchData, b.GetLength());
    return s;
}

int CString::Compare(LPCTSTR text) const { return std::strcmp(m_pchData, text ? text : ""); }
int CString::CompareNoCase(LPCTSTR text) const { return _stricmp(m_pchData, text ? text : ""); }
int CString::Collate(LPCTSTR text) const { return std::strcoll(m_pchData, text ? text : ""); }
int CString::CollateNoCase(LPCTSTR text) const { return CompareNoCase(text); }

CString CString::Mid(int first, int count) const {
    int length = GetLength();
    if (first < 0) first = 0;
    if (count < 0) count = 0;
    if (first > length) first = length;
    if (count > length - first) count = length - first;
    return CString(m_pchData + first, count);
}
CString CString::Mid(int first) const { return Mid(first, GetLength() - (first < 0 ? 0 : first)); }
CString CString::Left(int count) const { return Mid(0, count); }
CString CString::Right(int count) const {
    int length = GetLength();
    if (count < 0) count = 0;
    if (count > length) count = length;
    return CString(m_pchData + length - count, count);
}
CString CString::SpanIncluding(LPCTSTR charSet) const {
    return Left(static_cast<int>(std::strspn(m_pchData, charSet ? charSet : "")));
}
CString CString::SpanExcluding(LPCTSTR charSet) const {
    return Left(static_cast<int>(std::strcspn(m_pchData, charSet ? charSet : "")));
}

void CString::MakeUpper() {
    for (int i = 0; i < GetLength(); ++i) m_pchData[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(m_pchData[i])));
}
void CString::MakeLower() {
    for (int i = 0; i < GetLength(); ++i) m_pchData[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(m_pchData[i])));
}
void CString::MakeReverse() { std::reverse(m_pchData, m_pchData + GetLength()); }

int CString::Replace(TCHAR oldChar, TCHAR newChar) {
    int n = 0;
    if (oldChar == newChar) return 0;
    for (int i = 0; i < GetLength(); ++i)
        if (m_pchData[i] == oldChar) {
            m_pchData[i] = newChar;
            ++n;
        }
    return n;
}

int CString::Replace(LPCTSTR oldText, LPCTSTR newText) {
    int oldLength = Length(oldText);
    if (oldLength == 0) return 0;
    int newLength = Length(newText);
    int n = 0;
    for (const char* p = std::strstr(m_pchData, oldText); p; p = std::strstr(p + oldLength, oldText)) ++n;
    if (!n) return 0;
    CString out;
    out.AllocBuffer(GetLength() + n * (newLength - oldLength));
    char* w = out.m_pchData;
    const char* r = m_pchData;
    for (const char* p = std::strstr(r, oldText); p; p = std::strstr(r, oldText)) {
        std::memcpy(w, r, static_cast<size_t>(p - r));
        w += p - r;
        if (newLength) std::memcpy(w, newText, static_cast<size_t>(newLength));
        w += newLength;
        r = p + oldLength;
    }
    std::memcpy(w, r, static_cast<size_t>(m_pchData + GetLength() - r));
    std::swap(m_pchData, out.m_pchData);
    return n;
}

int CString::Remove(TCHAR ch) {
    int length = GetLength();
    int kept = 0;
    for (int i = 0; i < length; ++i)
        if (m_pchData[i] != ch) m_pchData[kept++] = m_pchData[i];
    SetLength(kept);
    return length - kept;
}

int CString::Insert(int index, TCHAR ch) { return Insert(index, CString(ch, 1)); }

int CString::Insert(int index, LPCTSTR text) {
    int length = GetLength();
    int add = Length(text);
    if (index < 0) index = 0;
    if (index > length) index = length;
    if (add > 0) {
        CString out;
        out.AllocBuffer(length + add);
        std::memcpy(out.m_pchData, m_pchData, static_cast<size_t>(index));
        std::memcpy(out.m_pchData + index, text, static_cast<size_t>(add));
        std::memcpy(out.m_pchData + index + add, m_pchData + index, static_cast<size_t>(length - index));
        std::swap(m_pchData, out.m_pchData);
    }
    return GetLength();
}

int CString::Delete(int index, int count) {
    int length = GetLength();
    if (index < 0) index = 0;
    if (count > length - index) count = length - index;
    if (count > 0) {
        std::memmove(m_pchData + index, m_pchData + index + count, static_cast<size_t>(length - index - count));
        SetLength(length - count);
    }
    return GetLength();
}

void CString::TrimRight() {
    int end = GetLength();
    while (end > 0 && IsSpace(m_pchData[end - 1])) --end;
    SetLength(end);
}
void CString::TrimRight(TCHAR target) {
    int end = GetLength();
    while (end > 0 && m_pchData[end - 1] == target) --end;
    SetLength(end);
}
void CString::TrimRight(LPCTSTR targets) {
    int end = GetLength();
    while (end > 0 && targets && std::strchr(targets, m_pchData[end - 1])) --end;
    SetLength(end);
}

namespace {
template <class Keep>
int LeadingRun(const char* text, int length, Keep inRun) {
    int n = 0;
    while (n < length && inRun(text[n])) ++n;
    return n;
}
}  // namespace

void CString::TrimLeft() { Delete(0, LeadingRun(m_pchData, GetLength(), IsSpace)); }
void CString::TrimLeft(TCHAR target) {
    Delete(0, LeadingRun(m_pchData, GetLength(), [target](char c) { return c == target; }));
}
void CString::TrimLeft(LPCTSTR targets) {
    if (!targets) return;
    Delete(0, LeadingRun(m_pchData, GetLength(), [targets](char c) { return c && std::strchr(targets, c); }));
}

int CString::Find(TCHAR ch) const { return Find(ch, 0); }
int CString::Find(TCHAR ch, int start) const {
    if (start < 0 || start >= GetLength()) return -1;
    const char* p = std::strchr(m_pchData + start, ch);
    return p && ch ? static_cast<int>(p - m_pchData) : -1;
}
int CString::Find(LPCTSTR sub) const { return Find(sub, 0); }
int CString::Find(LPCTSTR sub, int start) const {
    if (!sub || start < 0 || start > GetLength()) return -1;
    const char* p = std::strstr(m_pchData + start, sub);
    return p ? static_cast<int>(p - m_pchData) : -1;
}
int CString::ReverseFind(TCHAR ch) const {
    const char* p = std::strrchr(m_pchData, ch);
    return p && ch ? static_cast<int>(p - m_pchData) : -1;
}
int CString::FindOneOf(LPCTSTR charSet) const {
    const char* p = std::strpbrk(m_pchData, charSet ? charSet : "");
    return p ? static_cast<int>(p - m_pchData) : -1;
}

void CString::Format(LPCTSTR format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(LPCTSTR format, va_list args) {
    if (!format) {
        Empty();
        return;
    }
    va_list probe;
    va_copy(probe, args);
    int length = std::vsnprintf(nullptr, 0, format, probe);
    va_end(probe);
    CString out;
    if (length > 0) {
        out.AllocBuffer(length);
        std::vsnprintf(out.m_pchData, static_cast<size_t>(length) + 1, format, args);
    }
    std::swap(m_pchData, out.m_pchData);
}

LPTSTR CString::GetBuffer(int minLength) {
    int length = GetLength();
    if (minLength < length) minLength = length;
    if (m_pchData == gEmpty.text || GetData()->nAllocLength < minLength) {
        CString grown;
        grown.AllocBuffer(minLength > 0 ? minLength : 1);
        std::memcpy(grown.m_pchData, m_pchData, static_cast<size_t>(length) + 1);
        grown.GetData()->nDataLength = length;
        std::swap(m_pchData, grown.m_pchData);
    }
    return m_pchData;
}

void CString::ReleaseBuffer(int newLength) {
    if (m_pchData == gEmpty.text) return;
    int room = GetData()->nAllocLength;
    if (newLength < 0) newLength = static_cast<int>(strnlen(m_pchData, static_cast<size_t>(room)));
    SetLength(std::min(newLength, room));
}

LPTSTR CString::GetBufferSetLength(int newLength) {
    if (newLength < 0) newLength = 0;
    GetBuffer(newLength);
    SetLength(newLength);
    return m_pchData;
}

void CString::FreeExtra() {
    if (m_pchData == gEmpty.text || GetData()->nAllocLength == GetLength()) return;
    CString exact(m_pchData, GetLength());
    std::swap(m_pchData, exact.m_pchData);
}

bool operator==(const CString& a, const CString& b) { return a.Compare(b) == 0; }
bool operator==(const CString& a, LPCTSTR b) { return a.Compare(b) == 0; }
bool operator==(LPCTSTR a, const CString& b) { return b.Compare(a) == 0; }
bool operator!=(const CString& a, const CString& b) { return a.Compare(b) != 0; }
bool operator!=(const CString& a, LPCTSTR b) { return a.Compare(b) != 0; }
bool operator!=(LPCTSTR a, const CString& b) { return b.Compare(a) != 0; }
bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
bool operator<(const CString& a, LPCTSTR b) { return a.Compare(b) < 0; }
bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
bool operator>(const CString& a, LPCTSTR b) { return a.Compare(b) > 0; }
bool operator<=(const CString& a, const CString& b) { return a.Compare(b) <= 0; }
bool operator>=(const CString& a, const CString& b) { return a.Compare(b) >= 0; }
