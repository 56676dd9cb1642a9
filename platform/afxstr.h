// CString: the MFC string class, single-byte. Texts are bytes and every index
// counts bytes from 0.
//
// The object is one pointer to the text, which is NUL-terminated and preceded
// by its length and capacity, so a CString passes to "%s" of a printf-style
// call as its text, as MFC code does. Copies are deep. Indices out of range
// are clamped as noted rather than trusted.
#pragma once
#include <cstdarg>

typedef char TCHAR;
typedef const char* LPCTSTR;
typedef char* LPTSTR;
typedef const char* LPCSTR;

class CString {
public:
    CString();
    CString(const CString& source);
    CString(CString&& source) noexcept;
    CString(LPCTSTR text);                // null: empty
    CString(LPCTSTR text, int length);    // the first `length` bytes (the text may hold NULs)
    CString(TCHAR ch, int repeat = 1);
    ~CString();

    int GetLength() const;
    bool IsEmpty() const { return GetLength() == 0; }
    void Empty();
    TCHAR GetAt(int index) const;         // unchecked, as in MFC
    TCHAR operator[](int index) const { return GetAt(index); }
    void SetAt(int index, TCHAR ch);
    operator LPCTSTR() const { return m_pchData; }

    CString& operator=(const CString& source);
    CString& operator=(CString&& source) noexcept;
    CString& operator=(LPCTSTR text);
    CString& operator=(TCHAR ch);
    CString& operator+=(const CString& text);
    CString& operator+=(LPCTSTR text);
    CString& operator+=(TCHAR ch);
    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, LPCTSTR b);
    friend CString operator+(LPCTSTR a, const CString& b);
    friend CString operator+(const CString& a, TCHAR b);
    friend CString operator+(TCHAR a, const CString& b);

    // strcmp and the case-blind _stricmp: negative, 0 or positive.
    int Compare(LPCTSTR text) const;
    int CompareNoCase(LPCTSTR text) const;
    int Collate(LPCTSTR text) const;
    int CollateNoCase(LPCTSTR text) const;

    // Extraction. A negative first or count counts as 0; a range past the end
    // is cut at the end.
    CString Mid(int first, int count) const;
    CString Mid(int first) const;
    CString Left(int count) const;
    CString Right(int count) const;
    CString SpanIncluding(LPCTSTR charSet) const;   // the leading run of bytes in the set
    CString SpanExcluding(LPCTSTR charSet) const;   // the leading run of bytes not in it

    void MakeUpper();
    void MakeLower();
    void MakeReverse();

    // Changes in place. Each Replace returns the number of replacements; an
    // empty `old` replaces nothing. Remove drops every `ch` and returns how
    // many went.
    int Replace(TCHAR oldChar, TCHAR newChar);
    int Replace(LPCTSTR oldText, LPCTSTR newText);
    int Remove(TCHAR ch);
    // Insert clamps the index to 0..length; returns the new length.
    int Insert(int index, TCHAR ch);
    int Insert(int index, LPCTSTR text);
    // Removes `count` bytes from `index` (a negative index counts as 0; the
    // count is cut at the end); returns the new length.
    int Delete(int index, int count = 1);

    // Trim without an argument takes white space; with one, that byte or any
    // byte of the set.
    void TrimRight();
    void TrimRight(TCHAR target);
    void TrimRight(LPCTSTR targets);
    void TrimLeft();
    void TrimLeft(TCHAR target);
    void TrimLeft(LPCTSTR targets);

    // Searches: the byte index, or -1. A start past the end (or negative)
    // finds nothing.
    int Find(TCHAR ch) const;
    int Find(TCHAR ch, int start) const;
    int Find(LPCTSTR sub) const;
    int Find(LPCTSTR sub, int start) const;
    int ReverseFind(TCHAR ch) const;
    int FindOneOf(LPCTSTR charSet) const;

    void Format(LPCTSTR format, ...);
    void FormatV(LPCTSTR format, va_list args);

    // A writable buffer of at least `minLength` bytes plus the terminator,
    // holding the text; ReleaseBuffer ends the writing and sets the length
    // (-1: up to the first NUL).
    LPTSTR GetBuffer(int minLength);
    void ReleaseBuffer(int newLength = -1);
    LPTSTR GetBufferSetLength(int newLength);
    void FreeExtra();
    LPTSTR LockBuffer() { return GetBuffer(0); }
    void UnlockBuffer() {}

    struct Data;   // the header in front of the text

private:
    Data* GetData() const;
    void AllocBuffer(int length);   // fresh, uninitialised text of `length` bytes
    void Release();                  // back to the shared empty text
    void Assign(const char* text, int length);
    void Concat(const char* a, int la, const char* b, int lb);
    void SetLength(int length);

    LPTSTR m_pchData;
};

bool operator==(const CString& a, const CString& b);
bool operator==(const CString& a, LPCTSTR b);
bool operator==(LPCTSTR a, const CString& b);
bool operator!=(const CString& a, const CString& b);
bool operator!=(const CString& a, LPCTSTR b);
bool operator!=(LPCTSTR a, const CString& b);
bool operator<(const CString& a, const CString& b);
bool operator<(const CString& a, LPCTSTR b);
bool operator>(const CString& a, const CString& b);
bool operator>(const CString& a, LPCTSTR b);
bool operator<=(const CString& a, const CString& b);
bool operator>=(const CString& a, const CString& b);
