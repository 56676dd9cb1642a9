// Files: the host's open/close/read/write functions on FILE values, findfile,
// and the vl-file and vl-filename families. Files are read and written as
// bytes; read-line and read-char take "\r\n" as one line end, as the host's
// text files have it, and write-line ends lines with "\n".
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "host/ads/output.h"
#include "host/lisp/builtins.h"
#include "host/lisp/local_path.h"
#include "host/lisp/session.h"
#include "platform/acedads.h"

namespace lumo::lisp {
namespace {

namespace fs = std::filesystem;

std::FILE* StreamArg(const Ref& v) {
    if (!v.Is(Type::File)) TypeError("streamp", v);
    return v.As<File>().fp;
}

// Keyboard input for read-line and read-char without a file: one typed line
// at a time, taken from the host's input.
std::string& KeyboardBuffer() {
    static std::string pending;
    return pending;
}

bool FillKeyboard() {
    std::string& pending = KeyboardBuffer();
    if (!pending.empty()) return true;
    char line[2048];
    if (acedGetString(1, "", line) != RTNORM) return false;
    pending = std::string(line) + "\n";
    return true;
}

// One byte of a file, with "\r\n" read as "\n"; EOF at the end.
int ReadByte(std::FILE* fp) {
    int c = std::fgetc(fp);
    if (c != '\r') return c;
    int next = std::fgetc(fp);
    if (next == '\n') return '\n';
    if (next != EOF) std::ungetc(next, fp);
    return c;
}

Ref Open(Args a) {
    ArgCount(a, 2, 3);
    const std::string& name = StrArg(a[0]);
    const std::string& mode = StrArg(a[1]);
    const char* cmode = nullptr;
    if (mode == "r" || mode == "R") cmode = "rb";
    else if (mode == "w" || mode == "W") cmode = "wb";
    else if (mode == "a" || mode == "A") cmode = "ab";
    if (!cmode || name.empty()) return nullptr;
    std::string path = LocalPath(name);
    std::error_code ec;
    if (path.empty() || fs::is_directory(path, ec)) return nullptr;   // Linux would open a folder
    std::FILE* fp = std::fopen(path.c_str(), cmode);
    if (!fp) return nullptr;
    return Ref(new File(fp, name));
}

Ref Close(Args a) {
    ArgCount(a, 1, 1);
    std::FILE* fp = StreamArg(a[0]);
    if (fp) std::fclose(fp);
    const_cast<File&>(a[0].As<File>()).fp = nullptr;   // the value stays, closed
    return nullptr;
}

Ref ReadLine(Args a) {
    ArgCount(a, 0, 1);
    if (a.empty()) {
        if (!FillKeyboard()) return nullptr;
        std::string& pending = KeyboardBuffer();
        size_t end = pending.find('\n');
        std::string line = pending.substr(0, end);
        pending.erase(0, end == std::string::npos ? end : end + 1);
        return MakeStr(std::move(line));
    }
    std::FILE* fp = StreamArg(a[0]);
    if (!fp) return nullptr;
    std::string line;
    int c = ReadByte(fp);
    if (c == EOF) return nullptr;
    for (; c != EOF && c != '\n'; c = ReadByte(fp)) line += static_cast<char>(c);
    return MakeStr(std::move(line));
}

Ref ReadChar(Args a) {
    ArgCount(a, 0, 1);
    if (a.empty()) {
        if (!FillKeyboard()) return nullptr;
        std::string& pending = KeyboardBuffer();
        unsigned char c = static_cast<unsigned char>(pending[0]);
        pending.erase(0, 1);
        return MakeInt(c);
    }
    std::FILE* fp = StreamArg(a[0]);
    int c = fp ? ReadByte(fp) : EOF;
    return c == EOF ? Ref() : MakeInt(c);
}

Ref WriteLine(Args a) {
    ArgCount(a, 1, 2);
    const std::string& s = StrArg(a[0]);
    if (a.size() > 1) {
        if (std::FILE* fp = StreamArg(a[1])) {
            std::fwrite(s.data(), 1, s.size(), fp);
            std::fputc('\n', fp);
        }
    } else {
        host::WriteOutput(s + "\n");
    }
    return a[0];
}

Ref WriteChar(Args a) {
    ArgCount(a, 1, 2);
    char c = static_cast<char>(IntArg(a[0]) & 0xFF);
    if (a.size() > 1) {
        if (std::FILE* fp = StreamArg(a[1])) std::fputc(static_cast<unsigned char>(c), fp);
    } else {
        host::WriteOutput(std::string(1, c));
    }
    return a[0];
}

Ref Findfile(Args a) {
    ArgCount(a, 1, 1);
    std::string path = FindFile(StrArg(a[0]));
    return path.empty() ? Ref() : MakeStr(std::move(path));
}

Ref VlFileDelete(Args a) {
    ArgCount(a, 1, 1);
    std::error_code ec;
    fs::path p = LocalPath(StrArg(a[0]));
    if (!fs::is_regular_file(p, ec)) return nullptr;
    return MakeBool(fs::remove(p, ec));
}

// A file is never renamed onto an existing one.
Ref VlFileRename(Args a) {
    ArgCount(a, 2, 2);
    std::error_code ec;
    fs::path from = LocalPath(StrArg(a[0])), to = LocalPath(StrArg(a[1]));
    if (!fs::exists(from, ec) || fs::exists(to, ec)) return nullptr;
    fs::rename(from, to, ec);
    return MakeBool(!ec);
}

// The number of bytes copied; an existing target is only appended to.
Ref VlFileCopy(Args a) {
    ArgCount(a, 2, 3);
    std::string from = LocalPath(StrArg(a[0])), to = LocalPath(StrArg(a[1]));
    bool append = a.size() > 2 && a[2];
    std::error_code ec;
    if (!fs::is_regular_file(from, ec) || (!append && fs::exists(to, ec))) return nullptr;
    if (fs::equivalent(from, to, ec)) return nullptr;
    std::FILE* in = std::fopen(from.c_str(), "rb");
    if (!in) return nullptr;
    std::FILE* out = std::fopen(to.c_str(), append ? "ab" : "wb");
    if (!out) {
        std::fclose(in);
        return nullptr;
    }
    char buf[8192];
    size_t total = 0, n;
    bool ok = true;
    while ((n = std::fread(buf, 1, sizeof buf, in)) > 0) {
        ok = ok && std::fwrite(buf, 1, n, out) == n;
        total += n;
    }
    std::fclose(in);
    ok = std::fclose(out) == 0 && ok;
    return ok ? MakeInt(static_cast<int32_t>(total)) : Ref();
}

Ref VlFileDirectoryP(Args a) {
    ArgCount(a, 1, 1);
    std::error_code ec;
    return MakeBool(fs::is_directory(LocalPath(StrArg(a[0])), ec));
}

char Fold(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool Glob(const std::string& name, const std::string& pattern) {
    size_t n = 0, p = 0, starP = std::string::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || Fold(pattern[p]) == Fold(name[n]))) {
            ++p;
            ++n;
        } else if (starP != std::string::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

// File-name patterns as a directory listing takes them: * and ?, letter case
// ignored, and a pattern ending in ".*" also matching names without a dot
// ("*.*" is every name).
bool NameMatches(const std::string& name, const std::string& pattern) {
    if (Glob(name, pattern)) return true;
    size_t n = pattern.size();
    return n >= 2 && pattern.compare(n - 2, 2, ".*") == 0 && name.find('.') == std::string::npos &&
           Glob(name, pattern.substr(0, n - 2));
}

// (vl-directory-files [directory pattern what]): what -1 folders only, 1
// files only, else both. Folders include "." and "..". Sorted by name.
Ref VlDirectoryFiles(Args a) {
    ArgCount(a, 0, 3);
    std::string dir = a.size() > 0 && a[0] ? StrArg(a[0]) : std::string(".");
    std::string pattern = a.size() > 1 && a[1] ? StrArg(a[1]) : std::string("*.*");
    int32_t what = a.size() > 2 && a[2] ? IntArg(a[2]) : 0;
    if (dir.empty()) dir = ".";
    std::error_code ec;
    fs::path root = LocalPath(dir);
    if (!fs::is_directory(root, ec)) return nullptr;
    std::vector<std::string> names;
    if (what <= 0) {
        for (const char* special : {".", ".."})
            if (NameMatches(special, pattern)) names.push_back(special);
    }
    for (fs::directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code kindError;
        bool isDir = it->is_directory(kindError);
        if ((what < 0 && !isDir) || (what > 0 && isDir)) continue;
        std::string name = it->path().filename().string();
        if (NameMatches(name, pattern)) names.push_back(name);
    }
    std::sort(names.begin(), names.end(), [](const std::string& x, const std::string& y) {
        return std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end(),
                                            [](char p, char q) { return Fold(p) < Fold(q); });
    });
    ListBuilder out;
    for (std::string& name : names) out.Add(MakeStr(std::move(name)));
    return out.Take();
}

// File names are split on either separator, as the host writes both.
size_t NameStart(const std::string& path) {
    size_t sep = path.find_last_of("/\\");
    size_t drive = path.size() >= 2 && path[1] == ':' ? 2 : 0;
    return sep == std::string::npos ? drive : std::max(sep + 1, drive);
}
// The position of the extension's dot in the name part, or npos.
size_t ExtensionDot(const std::string& path) {
    size_t start = NameStart(path);
    size_t dot = path.rfind('.');
    return dot == std::string::npos || dot < start ? std::string::npos : dot;
}

Ref VlFilenameBase(Args a) {
    ArgCount(a, 1, 1);
    const std::string& path = StrArg(a[0]);
    size_t start = NameStart(path), dot = ExtensionDot(path);
    return MakeStr(path.substr(start, dot == std::string::npos ? std::string::npos : dot - start));
}

Ref VlFilenameExtension(Args a) {
    ArgCount(a, 1, 1);
    const std::string& path = StrArg(a[0]);
    size_t dot = ExtensionDot(path);
    return dot == std::string::npos ? Ref() : MakeStr(path.substr(dot));
}

Ref VlFilenameDirectory(Args a) {
    ArgCount(a, 1, 1);
    const std::string& path = StrArg(a[0]);
    size_t start = NameStart(path);
    size_t end = start;
    if (end > 0 && (path[end - 1] == '/' || path[end - 1] == '\\') && end - 1 > 0 && path[end - 2] != ':') --end;
    return MakeStr(path.substr(0, end));
}

std::string TempFolder() {
    for (const char* var : {"TEMP", "TMP", "TMPDIR"})
        if (const char* v = std::getenv(var); v && *v) return v;
    return "/tmp";
}

// A name for a new temporary file, not yet taken: the pattern's base (five
// characters at most) and three hexadecimal digits.
Ref VlFilenameMktemp(Args a) {
    ArgCount(a, 0, 3);
    std::string pattern = a.size() > 0 && a[0] ? StrArg(a[0]) : std::string("$VL~~");
    size_t start = NameStart(pattern), dot = ExtensionDot(pattern);
    std::string dir = pattern.substr(0, start);
    std::string base = pattern.substr(start, dot == std::string::npos ? std::string::npos : dot - start);
    std::string ext = dot == std::string::npos ? std::string() : pattern.substr(dot);
    if (dir.empty()) dir = a.size() > 1 && a[1] ? StrArg(a[1]) : TempFolder();
    if (ext.empty() && a.size() > 2 && a[2]) ext = StrArg(a[2]);
    if (!dir.empty() && dir.back() != '/' && dir.back() != '\\') dir += '/';
    base = base.substr(0, 5);
    static unsigned counter = 0;
    for (unsigned tries = 0; tries < 0x1000; ++tries) {
        char num[8];
        std::snprintf(num, sizeof num, "%03x", (counter++) & 0xFFF);
        std::string candidate = dir + base + num + ext;
        std::error_code ec;
        if (!fs::exists(LocalPath(candidate), ec)) return MakeStr(candidate);
    }
    return nullptr;
}

Ref Getenv(Args a) {
    ArgCount(a, 1, 1);
    const char* v = std::getenv(StrArg(a[0]).c_str());
    return v ? MakeStr(v) : Ref();
}

Ref Setenv(Args a) {
    ArgCount(a, 2, 2);
    const std::string& name = StrArg(a[0]);
    const std::string& value = StrArg(a[1]);
    if (name.empty() || name.find('=') != std::string::npos) return nullptr;
    ::setenv(name.c_str(), value.c_str(), 1);
    return a[1];
}

const BuiltinTable kFiles{{
    {"open", Open}, {"close", Close}, {"read-line", ReadLine}, {"read-char", ReadChar},
    {"write-line", WriteLine}, {"write-char", WriteChar}, {"findfile", Findfile},
    {"vl-file-delete", VlFileDelete}, {"vl-file-rename", VlFileRename}, {"vl-file-copy", VlFileCopy},
    {"vl-file-directory-p", VlFileDirectoryP}, {"vl-directory-files", VlDirectoryFiles},
    {"vl-filename-base", VlFilenameBase}, {"vl-filename-extension", VlFilenameExtension},
    {"vl-filename-directory", VlFilenameDirectory}, {"vl-filename-mktemp", VlFilenameMktemp},
    {"getenv", Getenv}, {"setenv", Setenv},
}};

}  // namespace
}  // namespace lumo::lisp
