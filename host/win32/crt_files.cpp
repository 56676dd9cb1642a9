// The C runtime's calls on files and folders, over the host's path mapping.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <strings.h>
#include <vector>

#include "host/win32/file_info.h"
#include "host/win32/path_map.h"
#include "platform/crt_files.h"

using namespace lumo::win32;

namespace {

// Matches `name` against a pattern of `*` and `?` without regard to case.
bool Glob(const char* pattern, const char* name) {
    const char* star = nullptr;
    const char* resume = nullptr;
    while (*name) {
        if (*pattern == '*') {
            star = pattern++;
            resume = name;
        } else if (*pattern == '?' ||
                   std::tolower(static_cast<unsigned char>(*pattern)) == std::tolower(static_cast<unsigned char>(*name))) {
            ++pattern;
            ++name;
        } else if (star) {
            pattern = star + 1;
            name = ++resume;
        } else {
            return false;
        }
    }
    while (*pattern == '*') ++pattern;
    return !*pattern;
}

// Windows lets a pattern's ".*" match a name without any dot, so "*.*" is
// every name and "a.*" finds "a".
bool PatternMatches(const std::string& pattern, const std::string& name) {
    if (Glob(pattern.c_str(), name.c_str())) return true;
    if (pattern.size() >= 2 && pattern.compare(pattern.size() - 2, 2, ".*") == 0 && name.find('.') == std::string::npos)
        return Glob(pattern.substr(0, pattern.size() - 2).c_str(), name.c_str());
    return false;
}

struct Search {
    std::vector<_finddata_t> entries;
    size_t next = 0;
};

std::map<intptr_t, std::unique_ptr<Search>>& Searches() {
    static std::map<intptr_t, std::unique_ptr<Search>> searches;
    return searches;
}

_finddata_t EntryOf(const std::string& folder, const std::string& name) {
    _finddata_t data{};
    std::snprintf(data.name, sizeof data.name, "%s", name.c_str());
    struct stat st;
    // A link is an entry of its own, never the folder it points to: a
    // recursive delete must not walk out of the tree.
    if (lstat((folder + "/" + name).c_str(), &st) != 0) return data;
    data.attrib = AttributesOf(name, st);
    data.time_create = st.st_ctime;
    data.time_access = st.st_atime;
    data.time_write = st.st_mtime;
    data.size = S_ISDIR(st.st_mode) ? 0 : static_cast<_fsize_t>(st.st_size);
    return data;
}

int CaseOrder(const _finddata_t& a, const _finddata_t& b) {
    int byCase = strcasecmp(a.name, b.name);
    return byCase ? byCase : std::strcmp(a.name, b.name);
}

}  // namespace

char* _getcwd(char* buffer, int maxlen) {
    char real[PATH_MAX];
    if (!getcwd(real, sizeof real)) return nullptr;
    std::string shown = ToWindowsPath(real);
    size_t needed = shown.size() + 1;
    if (!buffer) {
        size_t size = std::max(needed, maxlen > 0 ? static_cast<size_t>(maxlen) : size_t{0});
        buffer = static_cast<char*>(std::malloc(size));
        if (!buffer) {
            errno = ENOMEM;
            return nullptr;
        }
    } else if (maxlen < 0 || needed > static_cast<size_t>(maxlen)) {
        errno = ERANGE;
        return nullptr;
    }
    std::memcpy(buffer, shown.c_str(), needed);
    return buffer;
}

int _mkdir(const char* path) { return path ? mkdir(MapPath(path).c_str(), 0777) : (errno = EINVAL, -1); }
int _chdir(const char* path) { return path ? chdir(MapPath(path).c_str()) : (errno = EINVAL, -1); }
int _rmdir(const char* path) { return path ? rmdir(MapPath(path).c_str()) : (errno = EINVAL, -1); }
int _unlink(const char* filename) { return filename ? unlink(MapPath(filename).c_str()) : (errno = EINVAL, -1); }

int _access(const char* path, int mode) {
    if (!path) return errno = EINVAL, -1;
    int how = F_OK;
    if (mode & 2) how |= W_OK;
    if (mode & 4) how |= R_OK;
    return access(MapPath(path).c_str(), how);
}

FILE* _fsopen(const char* filename, const char* mode, int) {
    if (!filename || !mode) return errno = EINVAL, nullptr;
    std::string plain;
    for (const char* m = mode; *m; ++m)
        if (*m != 't') plain += *m;   // text mode is the host's only mode
    std::string mapped = MapPath(filename);
    struct stat st;
    if (stat(mapped.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) return errno = EACCES, nullptr;  // as on Windows
    return std::fopen(mapped.c_str(), plain.c_str());
}

intptr_t _findfirst(const char* filespec, _finddata_t* fileinfo) {
    if (!filespec || !fileinfo) return errno = EINVAL, -1;
    std::string wanted = filespec;
    size_t cut = wanted.find_last_of("\\/");
    if (cut == std::string::npos && wanted.size() >= 2 && wanted[1] == ':') cut = 1;
    std::string folderPart = cut == std::string::npos ? std::string() : wanted.substr(0, cut + 1);
    std::string pattern = cut == std::string::npos ? wanted : wanted.substr(cut + 1);
    std::string folder = folderPart.empty() ? std::string(".") : MapPath(folderPart);
    DIR* dir = pattern.empty() || folder.empty() ? nullptr : opendir(folder.c_str());
    if (!dir) return errno = ENOENT, -1;
    auto search = std::make_unique<Search>();
    bool root = IsDriveRoot(folder);
    std::vector<_finddata_t> dots;
    while (dirent* e = readdir(dir)) {
        std::string name = e->d_name;
        bool isDot = name == "." || name == "..";
        if ((isDot && root) || !PatternMatches(pattern, name)) continue;
        (isDot ? dots : search->entries).push_back(EntryOf(folder, name));
    }
    closedir(dir);
    std::sort(search->entries.begin(), search->entries.end(),
              [](const _finddata_t& a, const _finddata_t& b) { return CaseOrder(a, b) < 0; });
    std::sort(dots.begin(), dots.end(), [](const _finddata_t& a, const _finddata_t& b) { return CaseOrder(a, b) < 0; });
    search->entries.insert(search->entries.begin(), dots.begin(), dots.end());
    if (search->entries.empty()) return errno = ENOENT, -1;
    *fileinfo = search->entries[0];
    search->next = 1;
    static intptr_t lastHandle = 0;
    intptr_t handle = ++lastHandle;
    Searches()[handle] = std::move(search);
    return handle;
}

int _findnext(intptr_t handle, _finddata_t* fileinfo) {
    auto it = Searches().find(handle);
    if (it == Searches().end() || !fileinfo) return errno = EINVAL, -1;
    Search& s = *it->second;
    if (s.next >= s.entries.size()) return errno = ENOENT, -1;
    *fileinfo = s.entries[s.next++];
    return 0;
}

int _findclose(intptr_t handle) {
    if (!Searches().erase(handle)) return errno = EINVAL, -1;
    return 0;
}
