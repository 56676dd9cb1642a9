// The text of a drawing file for the reader: mapped into memory when the
// file allows it, read whole otherwise.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace lumo::dxf {

class FileText {
public:
    FileText() = default;
    ~FileText();
    FileText(const FileText&) = delete;
    FileText& operator=(const FileText&) = delete;

    // False with `error` set to "<path>: <why>".
    bool Open(const std::string& path, std::string& error);
    std::string_view View() const { return m_map ? std::string_view(m_map, m_size) : std::string_view(m_copy); }
    // The reader has gone past `offset`: the memory of the text before it
    // may go back to the system. (A mapped page that is touched again reads
    // in again from the file, so a view that still points there stays good.)
    void Release(size_t offset);

private:
    const char* m_map = nullptr;
    size_t m_size = 0;
    size_t m_released = 0;
    std::string m_copy;
};

}  // namespace lumo::dxf
