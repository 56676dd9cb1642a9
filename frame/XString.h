// XString: a text in a heap buffer of the module's exported library, and
// strchr_new, the last occurrence of a byte in a file name.
//
// The object doesn't know its buffer's size: a buffer the class made without
// a given size holds 256 bytes, a copied text exactly its own size. The
// appending operators don't grow the buffer; the caller answers for its
// room. Misuse that the class cannot answer (a size below 1, comparing a null
// text) ends the process with _exit(1).
#pragma once

class XString {
public:
    XString(int size = 256);                 // `size` bytes, empty text
    XString(const char* format, ...);        // null: null text; else formatted (at most 255 bytes)
    XString(const XString& source);          // null stays null, else an exact copy
    ~XString();

    int Length() const;                      // 0 for a null text
    char* StrChr(char c) const;              // strchr on the text; null for a null text
    char& operator[](int i) { return text[i]; }   // unchecked
    char operator[](int i) const { return text[i]; }
    bool operator!() const;                  // null or empty
    operator const char*() const { return text; }
    const char* Text() const { return text; }

    XString& operator=(const char* source);  // a null source leaves a null text
    XString& operator=(const XString& source);
    int operator==(const XString& other) const;   // 1 or 0
    // Three-way: 0 equal, -1 when this text is smaller at the first differing
    // byte (bytes compare unsigned), 1 when greater.
    int operator!=(const XString& other) const;

    XString& operator<<(const char* more);   // a null buffer is first made 256 bytes
    XString& operator<<(int value);          // "%d"
    XString& operator<<(long value);         // "%ld"
    XString& operator<<(double value);       // "%g"
    XString& operator<<(const double* point);   // "(%g,%g,%g)"

private:
    char* text;
};

// The last occurrence of `c` in `text`, or null. With `nameOnly` and `c` not
// a path character (\ / : * ? " < > |), an occurrence that a backslash
// follows belongs to a folder name and gives null: with '.', the extension of
// a file name, never a dot of its folders.
char* strchr_new(const char* text, int c, bool nameOnly);
