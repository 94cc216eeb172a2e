#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "diff/compare.h"
#include "files/model.h"
#include "repair/repairing.h"
#include "report/report.h"

/// A file that is read, repaired, written to memory, and read and checked again.
class RepairedFile {
 public:
  /// Reads the file. `has_summary`: the input and the output are to be compared.
  RepairedFile(Model& model, const RepairRules& rules, const igsFileOptions& options, bool has_summary,
               std::ostream& err);

  void repair();
  /// Why the input is not whole; empty when it is.
  const std::string& what_is_missing() const { return m_missing; }
  /// Whether anything was read that can be written.
  bool can_be_written() const { return m_model.has_entities(); }
  /// Makes the bytes of the output. Returns why they cannot be trusted; empty when they can.
  std::string write(const std::string& target);
  const std::string& bytes() const { return m_bytes; }
  Outcome outcome() const;

 private:
  /// An error that was not repaired, with its entity.
  struct Pending {
    Finding finding;
    const igsObject* entity;
  };

  void note_findings();
  static std::optional<std::string> written_bytes(Model& model);
  std::string make_output(const std::string& target);
  std::string read_output(const std::string& target);
  bool is_settled();
  bool delete_faulty_entities();
  void forget_deleted();
  void settle_repaired();
  void compare();

  Model& m_model;
  RepairRules m_rules;
  igsFileOptions m_options;
  std::string m_input;  ///< where the input and the output are to be compared
  bool m_has_summary;
  std::vector<LostEntity> m_lost;
  std::string m_missing;
  int m_delete_rounds = 0;
  std::optional<FileFindings> m_repaired;
  FileFindings m_left;
  std::vector<Pending> m_pending;
  std::vector<std::pair<int, const igsObject*>> m_entities;  ///< by their DE numbers in the input
  std::vector<int> m_deleted;
  std::string m_bytes;
  std::unique_ptr<Model> m_before, m_output;
  std::vector<std::unique_ptr<Model>> m_again;  ///< outputs that were repaired once more
  std::optional<Comparison> m_comparison;
};
