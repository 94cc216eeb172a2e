#include <ostream>

#include "view/writers.h"

#if defined(IGS_HAS_VIEWER)
#include <algorithm>
#include <sstream>

#include "text/xml_text.h"
#include "view/page_template.h"

namespace {

constexpr std::size_t most_triangles_of_still = 3'000;

/// The picture as an element of a page: without what stands before the element.
std::string still_picture(const Scene& scene, PictureOptions options) {
  options.most_triangles = std::min(options.most_triangles, most_triangles_of_still);
  std::ostringstream out;
  write_svg(out, scene, options);
  const std::string picture = out.str();
  const std::size_t start = picture.find("<svg");
  return start == std::string::npos ? std::string() : picture.substr(start);
}

}  // namespace

bool has_pages() { return !page_template()[0].empty(); }

void write_page(std::ostream& out, const Scene& scene, const PictureOptions& still) {
  const std::string title = scene.old_title.empty() ? scene.title : scene.old_title + " - " + scene.title;
  const std::string contents[] = {xml_text(title), still_picture(scene, still), packed(scene, still.direction), ""};
  const std::string* content = contents;
  for (const std::vector<std::string_view>& parts : page_template()) {
    for (const std::string_view part : parts) out << part;
    out << *content++;
  }
}

#else

bool has_pages() { return false; }
void write_page(std::ostream&, const Scene&, const PictureOptions&) {}

#endif
