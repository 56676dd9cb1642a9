#include "host/display/render.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <vector>

#include "host/display/display_list.h"
#include "host/ss/entity_shape.h"
#include "host/ss/ssget.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

#ifdef LUMO_HAVE_PNG
#include <png.h>
#endif

namespace lumo::host {
namespace {

struct Stroke {
    PlanPath path;
    uint32_t rgb;
    bool dashed;
};

// A text of the drawing: SVG shows its words, PNG its box.
struct Label {
    PlanPoint at;
    double height, rotation;   // drawing units, radians
    std::string text;
    uint32_t rgb;
};

struct Picture {
    std::vector<Stroke> strokes;
    std::vector<Label> labels;
};

int GroupShort(const resbuf* list, int code, int fallback) {
    for (; list; list = list->rbnext)
        if (list->restype == code) return list->resval.rint;
    return fallback;
}

const char* GroupText(const resbuf* list, int code) {
    for (; list; list = list->rbnext)
        if (list->restype == code) return list->resval.rstring;
    return nullptr;
}

double GroupReal(const resbuf* list, int code, double fallback) {
    for (; list; list = list->rbnext)
        if (list->restype == code) return list->resval.rreal;
    return fallback;
}

bool TextLabel(const resbuf* list, uint32_t rgb, Label& out) {
    const char* type = GroupText(list, 0);
    const char* text = GroupText(list, 1);
    if (!type || !text || (std::strcmp(type, "TEXT") != 0 && std::strcmp(type, "MTEXT") != 0)) return false;
    for (const resbuf* rb = list; rb; rb = rb->rbnext)
        if (rb->restype == 10) out.at = {rb->resval.rpoint[0], rb->resval.rpoint[1]};
    out.height = GroupReal(list, 40, 1.0);
    out.rotation = GroupReal(list, 50, 0.0);
    out.text = text;
    out.rgb = rgb;
    return true;
}

// The entity's own colour, or its layer's for BYLAYER (and BYBLOCK).
int EntityColor(const resbuf* list) {
    int color = GroupShort(list, 62, 256);
    if (color != 256 && color != 0) return color;
    const char* layer = GroupText(list, 8);
    resbuf* record = layer ? acdbTblSearch("LAYER", layer, 0) : nullptr;
    int layerColor = std::abs(GroupShort(record, 62, 7));
    acutRelRb(record);
    return layerColor;
}

Picture CollectPicture() {
    Picture picture;
    std::vector<Stroke>& strokes = picture.strokes;
    for (int32_t serial : MainEntities()) {
        if (HiddenEntities().count(serial)) continue;
        ads_name name = {serial, 1};
        resbuf* list = acdbEntGet(name);
        if (!list) continue;
        bool paper = GroupShort(list, 67, 0) == 1;
        uint32_t rgb = ColorRgb(EntityColor(list));
        Label label;
        bool isText = !paper && TextLabel(list, rgb, label);
        acutRelRb(list);
        if (paper) continue;
        if (isText) picture.labels.push_back(std::move(label));
        std::vector<PlanPath> paths;
        EntityPlanPaths(name, paths);
        for (PlanPath& p : paths) strokes.push_back({std::move(p), rgb, HighlightedEntities().count(serial) != 0});
    }
    for (const ScreenVector& v : ScreenVectors())
        strokes.push_back({{{v.from[0], v.from[1]}, {v.to[0], v.to[1]}}, ColorRgb(v.color), v.highlight});
    return picture;
}

// Maps the drawing into a picture of at most 1600 by 1200 pixels with a margin.
struct Frame {
    double minX = 0, minY = 0, scale = 1;
    int width = 800, height = 600;
    explicit Frame(const std::vector<Stroke>& strokes) {
        double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
        for (const Stroke& s : strokes)
            for (const PlanPoint& p : s.path) {
                x0 = std::min(x0, p.x); y0 = std::min(y0, p.y);
                x1 = std::max(x1, p.x); y1 = std::max(y1, p.y);
            }
        if (x0 > x1) return;
        double w = std::max(x1 - x0, 1e-9), h = std::max(y1 - y0, 1e-9);
        double margin = 0.05 * std::max(w, h);
        minX = x0 - margin;
        minY = y0 - margin;
        w += 2 * margin;
        h += 2 * margin;
        scale = std::min(1600 / w, 1200 / h);
        width = std::max(1, static_cast<int>(std::ceil(w * scale)));
        height = std::max(1, static_cast<int>(std::ceil(h * scale)));
    }
    double X(const PlanPoint& p) const { return (p.x - minX) * scale; }
    double Y(const PlanPoint& p) const { return height - (p.y - minY) * scale; }
};

void EscapeXml(std::ostream& out, const std::string& text) {
    for (char c : text) {
        switch (c) {
        case '<': out << "&lt;"; break;
        case '>': out << "&gt;"; break;
        case '&': out << "&amp;"; break;
        case '"': out << "&quot;"; break;
        default: out << c;
        }
    }
}

bool WriteSvg(const std::string& path, const Picture& picture, std::string& error) {
    const std::vector<Stroke>& strokes = picture.strokes;
    Frame f(strokes);
    std::string tmp = path + ".tmp";
    {
        std::ofstream out(tmp);
        if (!out) {
            error = "cannot write " + path;
            return false;
        }
        out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << f.width << "\" height=\"" << f.height
            << "\" viewBox=\"0 0 " << f.width << ' ' << f.height << "\">\n"
            << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
        char color[8];
        for (const Stroke& s : strokes) {
            std::snprintf(color, sizeof color, "#%06X", s.rgb);
            if (s.path.size() == 1) {
                out << "<circle cx=\"" << f.X(s.path[0]) << "\" cy=\"" << f.Y(s.path[0]) << "\" r=\"1.5\" fill=\"" << color << "\"/>\n";
                continue;
            }
            out << "<polyline fill=\"none\" stroke=\"" << color << "\" stroke-width=\"1\""
                << (s.dashed ? " stroke-dasharray=\"4 3\"" : "") << " points=\"";
            for (const PlanPoint& p : s.path) out << f.X(p) << ',' << f.Y(p) << ' ';
            out << "\"/>\n";
        }
        for (const Label& l : picture.labels) {
            std::snprintf(color, sizeof color, "#%06X", l.rgb);
            double x = f.X(l.at), y = f.Y(l.at);
            out << "<text x=\"" << x << "\" y=\"" << y << "\" font-size=\"" << l.height * f.scale
                << "\" font-family=\"sans-serif\" fill=\"" << color << "\" transform=\"rotate("
                << -l.rotation * 180 / M_PI << ' ' << x << ' ' << y << ")\">";
            EscapeXml(out, l.text);
            out << "</text>\n";
        }
        out << "</svg>\n";
        if (!out) {
            error = "cannot write " + path;
            return false;
        }
    }
    if (std::rename(tmp.c_str(), path.c_str()) != 0) {
        error = "cannot write " + path;
        std::remove(tmp.c_str());
        return false;
    }
    return true;
}

#ifdef LUMO_HAVE_PNG
void Plot(std::vector<uint8_t>& rgb, const Frame& f, int x, int y, uint32_t c) {
    if (x < 0 || y < 0 || x >= f.width || y >= f.height) return;
    uint8_t* px = &rgb[(static_cast<size_t>(y) * f.width + x) * 3];
    px[0] = static_cast<uint8_t>(c >> 16);
    px[1] = static_cast<uint8_t>(c >> 8);
    px[2] = static_cast<uint8_t>(c);
}

bool WritePng(const std::string& path, const Picture& picture, std::string& error) {
    const std::vector<Stroke>& strokes = picture.strokes;
    Frame f(strokes);
    std::vector<uint8_t> rgb(static_cast<size_t>(f.width) * f.height * 3, 255);
    for (const Stroke& s : strokes) {
        for (size_t i = 0; i < s.path.size(); ++i) {
            const PlanPoint& a = s.path[i];
            const PlanPoint& b = s.path[i + 1 < s.path.size() ? i + 1 : i];
            double x0 = f.X(a), y0 = f.Y(a), x1 = f.X(b), y1 = f.Y(b);
            int steps = std::max(1, static_cast<int>(std::ceil(std::max(std::fabs(x1 - x0), std::fabs(y1 - y0)))));
            for (int k = 0; k <= steps; ++k) {
                if (s.dashed && (k / 4) % 2) continue;
                double t = static_cast<double>(k) / steps;
                Plot(rgb, f, static_cast<int>(x0 + (x1 - x0) * t), static_cast<int>(y0 + (y1 - y0) * t), s.rgb);
            }
        }
    }
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(f.width);
    image.height = static_cast<png_uint_32>(f.height);
    image.format = PNG_FORMAT_RGB;
    std::string tmp = path + ".tmp";
    if (!png_image_write_to_file(&image, tmp.c_str(), 0, rgb.data(), 0, nullptr) ||
        std::rename(tmp.c_str(), path.c_str()) != 0) {
        std::remove(tmp.c_str());
        error = "cannot write " + path;
        return false;
    }
    return true;
}
#endif

bool EndsWith(const std::string& s, const char* tail) {
    size_t n = std::strlen(tail);
    if (s.size() < n) return false;
    for (size_t i = 0; i < n; ++i)
        if (std::tolower(static_cast<unsigned char>(s[s.size() - n + i])) != tail[i]) return false;
    return true;
}

}  // namespace

bool RenderDrawing(const std::string& path, std::string& error) {
    Picture picture = CollectPicture();
    if (EndsWith(path, ".svg")) return WriteSvg(path, picture, error);
#ifdef LUMO_HAVE_PNG
    if (EndsWith(path, ".png")) return WritePng(path, picture, error);
#endif
    error = path + ": the picture must be .svg or .png";
    return false;
}

}  // namespace lumo::host
