#include "cli/quillmark-view/writePicture.h"

#include "cli/quillmark-view/Drawing.h"

#include <cairo-svg.h>
#include <cairo.h>
#include <memory>

namespace {

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
struct CanvasDeleter {
    void operator()(cairo_t* canvas) const noexcept { cairo_destroy(canvas); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

cairo_status_t append(void* file, const unsigned char* data, unsigned length) {
    return std::fwrite(data, 1, length, static_cast<std::FILE*>(file)) == length
               ? CAIRO_STATUS_SUCCESS
               : CAIRO_STATUS_WRITE_ERROR;
}

std::string reasonOf(cairo_status_t status) {
    return status == CAIRO_STATUS_SUCCESS
               ? std::string()
               : std::string("cannot be drawn: ") + cairo_status_to_string(status);
}

std::string drawOn(const Surface& surface, const PictureContent& content,
                   const PictureLayout& layout) {
    const std::unique_ptr<cairo_t, CanvasDeleter> canvas(cairo_create(surface.get()));
    Drawing(canvas.get(), content, layout).Draw();
    return reasonOf(cairo_status(canvas.get()));
}

} // namespace

bool makesPictures() noexcept { return true; }

std::string writeSvg(const PictureContent& content, std::FILE* out) {
    const PictureLayout layout = layOut(content);
    const Surface surface(
        cairo_svg_surface_create_for_stream(append, out, layout.width, layout.height));
    cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
    std::string reason = drawOn(surface, content, layout);
    cairo_surface_finish(surface.get());
    return reason.empty() ? reasonOf(cairo_surface_status(surface.get())) : reason;
}

std::string writePng(const PictureContent& content, std::FILE* out) {
    const PictureLayout layout = layOut(content);
    const Surface surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(layout.width), static_cast<int>(layout.height)));
    std::string reason = drawOn(surface, content, layout);
    return reason.empty() ? reasonOf(cairo_surface_write_to_png_stream(surface.get(), append, out))
                          : reason;
}
