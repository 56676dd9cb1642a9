// A picture of the drawing and of the screen's temporary vectors, so a user
// can look at what a script did.
#pragma once
#include <string>

namespace lumo::host {

// Writes SVG (a path ending in .svg) or PNG (.png, when the host was built
// with libpng). False with `error` set when the file cannot be written.
bool RenderDrawing(const std::string& path, std::string& error);

}  // namespace lumo::host
