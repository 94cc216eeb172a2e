#include <deque>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/support/utOstream.h"

// Prints call each other through references, on the call stack as far as that is surely deep enough. Below, the text of
// an entity is written ahead, and where another entity is printed within it, that place is noted. The texts are then
// shown from place to place, each entity being written when its place has come, so that the result is the one that
// nested calls would give.

/// A place in a text that is written ahead, and the entity that is to be printed there.
struct igsPrintPlace {
  std::size_t offset;
  const igsObject* entity;
};

namespace {
/// A text written ahead, of which the first part may have been shown and dropped.
class PrintedText {
 public:
  PrintedText(std::string text, std::vector<igsPrintPlace> places)
      : m_text(std::move(text)), m_places(std::move(places)) {}

  /// Shows what is left before the next place, and returns the entity that is to be printed there; null at the end.
  const igsObject* show(utOstream& os) {
    const bool at_end = m_next_place == m_places.size();
    show_up_to(at_end ? m_text.size() : m_places[m_next_place].offset - m_dropped, os);
    if (at_end) return nullptr;
    const igsObject* const entity = m_places[m_next_place++].entity;
    drop_what_was_shown();
    return entity;
  }

 private:
  void show_up_to(std::size_t end, utOstream& os) {
    const std::string_view text = std::string_view(m_text).substr(0, end);
    while (m_shown < end) {
      const std::size_t line_end = text.find('\n', m_shown);
      os << text.substr(m_shown, line_end - m_shown);
      m_shown = line_end == std::string_view::npos ? end : line_end + 1;
      if (line_end != std::string_view::npos) os << utEndl;
    }
  }

  // A chain has one text a link waiting for its end, of which little is left.
  void drop_what_was_shown() {
    if (2 * m_shown < m_text.size()) return;
    std::string(m_text, m_shown).swap(m_text);  // an assignment would keep the memory
    m_dropped += std::exchange(m_shown, 0);
    if (m_next_place == m_places.size()) std::exchange(m_places, {}), m_next_place = 0;
  }

  std::string m_text;
  std::vector<igsPrintPlace> m_places;
  std::size_t m_next_place = 0;
  std::size_t m_shown = 0;
  std::size_t m_dropped = 0;
};
}  // namespace

void igsObject::print(utOstream& os) const {
  constexpr int max_print_depth = 32;
  utOstream::Target& target = *os.m_target;
  if (target.places != nullptr) {
    target.places->push_back({static_cast<std::size_t>(target.stream->tellp()), this});
    return;
  }
  const igsTraversalScope traversal(file());
  if (m_manager->visited() != 0 || target.depth < max_print_depth) {
    print_this(os);
  } else {
    print_with_own_stack(os);
  }
}

void igsObject::print_this(utOstream& os) const {
  os << '@' << de_number() << '(' << static_cast<int>(directory_entry().entity_type()) << ") = {" << utEndl;
  if (m_manager->visited() == 0) {
    m_manager->set_visited(1);
    utOstream inner(os, 1);
    const utOstream::Level level(inner);
    directory_entry().print(inner);
    print_pd_data(inner);
    if (const igsKeptParts* const parts = file().kept_parts(*this)) parts->print(inner);
  }
  os << '}' << utEndl;
}

void igsObject::print_with_own_stack(utOstream& os) const {
  std::deque<PrintedText> path;
  const auto write_ahead = [&path](const igsObject& entity) {
    std::ostringstream text;
    std::vector<igsPrintPlace> places;
    utOstream ahead(text);
    ahead.m_target->places = &places;
    entity.print_this(ahead);
    path.emplace_back(std::move(text).str(), std::move(places));
  };
  write_ahead(*this);
  while (!path.empty()) {
    if (const igsObject* const entity = path.back().show(os)) {
      write_ahead(*entity);
    } else {
      path.pop_back();
    }
  }
}
