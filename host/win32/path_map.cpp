// The drive table and the mapping of Windows paths onto Linux ones.
#include "host/win32/path_map.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <map>
#include <strings.h>

namespace lumo::win32 {
namespace {

// Letter -> Linux folder, absolute, without a trailing slash but for "/".
std::map<char, std::string>& Drives() {
    static std::map<char, std::string> drives{{'C', "/"}};
    return drives;
}

std::string CurrentFolder() {
    char buf[PATH_MAX];
    return getcwd(buf, sizeof buf) ? std::string(buf) : std::string("/");
}

bool Exists(const std::string& path) {
    struct stat st;
    return lstat(path.c_str(), &st) == 0;
}

std::string Join(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    if (folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

// Absolute, with symbolic links resolved where the folder exists, so that it
// compares with what getcwd reports.
std::string Absolute(const std::string& folder) {
    std::string abs = folder.empty() || folder[0] != '/' ? Join(CurrentFolder(), folder) : folder;
    char real[PATH_MAX];
    if (realpath(abs.c_str(), real)) abs = real;
    while (abs.size() > 1 && abs.back() == '/') abs.pop_back();
    return abs;
}

// `name` as it is spelt in `folder`: itself if it exists, else the first
// entry equal to it without regard to case; empty when there is none.
std::string SpellingIn(const std::string& folder, const std::string& name) {
    std::string probe = Join(folder.empty() ? "." : folder, name);
    if (Exists(probe)) return name;
    DIR* dir = opendir(folder.empty() ? "." : folder.c_str());
    if (!dir) return {};
    std::string best;
    while (dirent* e = readdir(dir)) {
        if (strcasecmp(e->d_name, name.c_str()) == 0 && (best.empty() || best > e->d_name)) best = e->d_name;
    }
    closedir(dir);
    return best;
}

// Resolves the `/`-separated `rest` below `base` component by component,
// finding names in any case while the folders exist.
std::string Resolve(const std::string& base, const std::string& rest) {
    std::string out = base;
    bool found = true;  // the folder built so far exists
    size_t i = 0;
    while (i <= rest.size()) {
        size_t j = rest.find('/', i);
        if (j == std::string::npos) j = rest.size();
        std::string part = rest.substr(i, j - i);
        if (!part.empty()) {
            if (found && part != "." && part != "..") {
                std::string spelt = SpellingIn(out, part);
                if (spelt.empty()) found = false;
                else part = spelt;
            }
            out = Join(out, part);
        }
        i = j + 1;
    }
    if (!rest.empty() && rest.back() == '/' && !out.empty() && out.back() != '/') out += '/';
    return out;
}

std::string Slashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// The folder of the drive that holds the current folder, else "/".
std::string CurrentDriveFolder() {
    char letter = DriveOf(CurrentFolder());
    return letter ? Drives()[letter] : std::string("/");
}

}  // namespace

bool SetDrive(char letter, const std::string& folder) {
    char up = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    if (up < 'A' || up > 'Z') return false;
    if (folder.empty()) Drives().erase(up);
    else Drives()[up] = Absolute(folder);
    return true;
}

bool ParseDriveOption(const std::string& option) {
    if (option.size() < 3 || !std::isalpha(static_cast<unsigned char>(option[0]))) return false;
    size_t at = 1;
    if (option[at] == ':') ++at;
    if (option[at] != '=' || at + 1 >= option.size()) return false;
    return SetDrive(option[0], option.substr(at + 1));
}

std::string DriveFolder(char letter) {
    char up = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    auto it = Drives().find(up);
    return it == Drives().end() ? std::string() : it->second;
}

std::vector<char> DriveLetters() {
    std::vector<char> letters;
    for (const auto& [letter, folder] : Drives()) letters.push_back(letter);
    return letters;
}

void ResetDrives() {
    Drives().clear();
    Drives()['C'] = "/";
}

std::string MapPath(const std::string& path) {
    if (path.empty()) return path;
    if (path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]))) {
        std::string folder = DriveFolder(path[0]);
        if (folder.empty()) return {};                 // no such drive
        std::string rest = Slashes(path.substr(2));
        if (rest.empty()) return folder;
        if (rest[0] == '/') return Resolve(folder, rest);
        // Drive-relative: the current folder if it lies on that drive.
        std::string cwd = CurrentFolder();
        return Resolve(DriveOf(cwd) == std::toupper(static_cast<unsigned char>(path[0])) ? cwd : folder, rest);
    }
    if (path[0] == '/') return Resolve("/", path);      // a Linux path
    std::string rest = Slashes(path);
    if (rest.size() >= 2 && rest[0] == '/' && rest[1] == '/') return rest;  // a network name: as given
    if (rest[0] == '/') return Resolve(CurrentDriveFolder(), rest);
    return Resolve("", rest);
}

char DriveOf(const std::string& linuxPath) {
    std::string abs = linuxPath.empty() || linuxPath[0] != '/' ? Join(CurrentFolder(), linuxPath) : linuxPath;
    char best = 0;
    size_t bestLength = 0;
    for (const auto& [letter, folder] : Drives()) {
        bool inside = folder == "/" || abs == folder ||
                      (abs.compare(0, folder.size(), folder) == 0 && abs.size() > folder.size() &&
                       abs[folder.size()] == '/');
        if (inside && (!best || folder.size() > bestLength)) {
            best = letter;
            bestLength = folder.size();
        }
    }
    return best;
}

std::string ToWindowsPath(const std::string& linuxPath) {
    std::string abs = linuxPath.empty() || linuxPath[0] != '/' ? Join(CurrentFolder(), linuxPath) : linuxPath;
    char letter = DriveOf(abs);
    if (!letter) return linuxPath;
    const std::string& folder = Drives()[letter];
    std::string rest = folder == "/" ? abs : abs.substr(folder.size());
    std::replace(rest.begin(), rest.end(), '/', '\\');
    if (rest.empty() || rest[0] != '\\') rest.insert(rest.begin(), '\\');
    return std::string{letter, ':'} + rest;
}

}  // namespace lumo::win32
