// The text of a drawing file, mapped or read.
#include "host/dxf/file_text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lumo::dxf {

FileText::~FileText() {
    if (m_map) munmap(const_cast<char*>(m_map), m_size);
}

bool FileText::Open(const std::string& path, std::string& error) {
    int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    struct stat st {};
    if (fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size > 0) {
        void* p = mmap(nullptr, static_cast<size_t>(st.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
        if (p != MAP_FAILED) {
            close(fd);
            m_map = static_cast<const char*>(p);
            m_size = static_cast<size_t>(st.st_size);
            madvise(p, m_size, MADV_SEQUENTIAL);
            return true;
        }
    }
    // Pipes, devices and files that won't map: read them whole.
    char buf[1 << 16];
    ssize_t n;
    while ((n = read(fd, buf, sizeof buf)) > 0) m_copy.append(buf, static_cast<size_t>(n));
    int why = errno;
    close(fd);
    if (n < 0) {
        error = path + ": " + std::strerror(why);
        return false;
    }
    return true;
}

void FileText::Release(size_t offset) {
    if (!m_map) return;
    size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    size_t end = offset / page * page;
    if (end <= m_released) return;
    madvise(const_cast<char*>(m_map) + m_released, end - m_released, MADV_DONTNEED);
    m_released = end;
}

}  // namespace lumo::dxf
