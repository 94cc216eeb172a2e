#include "view/scene_findings.h"

#include <algorithm>
#include <span>

#include "explain/texts.h"
#include "findings/place.h"
#include "text/text.h"
#include "view/item_search.h"

void add_findings(const Model& model, const Findings& findings, const SceneItems& items, std::size_t most,
                  SceneEntities& entities, Scene& scene) {
  for (const Severity severity : {Severity::note, Severity::warning, Severity::error}) {
    scene.counts.at(static_cast<std::size_t>(severity)) = findings.count(severity);
  }
  const std::span<const Finding> list(findings.list().data(), std::min(most, findings.list().size()));
  if (list.empty()) return;
  const igsFile& file = model.file();
  const EntityTypes types(file);
  ItemSearch search(file, items);
  for (const Finding& finding : list) {
    const igsError& error = *finding.error;
    SceneFinding& shown = scene.findings.emplace_back();
    shown.severity = finding.severity;
    shown.class_name = error.objtype().name();
    shown.message = printable(to_utf8(sentence_of(error)));
    shown.place = place_of(finding.log, error, types);
    shown.line = finding.line;
    shown.is_consequence = finding.is_consequence;
    const std::optional<int> de = de_number(error);
    const igsObject* const entity = de ? file.entity(*de) : nullptr;
    if (entity == nullptr) continue;
    shown.entity = entities.position_of(*entity);
    shown.items = search.items_of(*entity);
    shown.dependents = search.dependents_of(*entity, shown.items);
  }
}
