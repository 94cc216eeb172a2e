#pragma once

#include <pybind11/pybind11.h>

#include <iosfwd>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "files/model.h"

namespace py = pybind11;

class Entity;
class EntityList;
class FileShapes;

/// What a thread's files are given back to, when the last reference to one goes elsewhere: only the thread that made a
/// file may delete it.
class FilesOfThread;

/// A file in memory, with the objects that Python has of it. Everything here is done with the lock of the interpreter
/// held, and all of it throws a std::runtime_error in any other thread than the one that made the file.
class Host : public std::enable_shared_from_this<Host> {
 public:
  /// Reads a stream, without the lock. Throws an UnreadableFile for what is no IGES file.
  static std::shared_ptr<Host> read(const std::string& name, std::istream& stream, const igsFileOptions& options);
  /// A file without entities.
  static std::shared_ptr<Host> make(const std::string& name, const igsFileOptions& options);

  Host(std::unique_ptr<Model> model, std::shared_ptr<FilesOfThread> files);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  Model& model() const;
  const igsFile& file() const { return model().file(); }
  /// For what changes the file.
  igsFile& changed_file();
  /// Why what was read is not whole; empty when it is.
  const std::string& fault() const { return static_cast<void>(model()), m_fault; }
  /// False for a file that began without content.
  bool was_read() const { return m_was_read; }
  /// True once something has changed since it was read.
  bool is_changed() const { return static_cast<void>(model()), m_is_changed; }
  /// From now on the file only tells how it was, as one that was repaired has taken its place.
  void retire() { static_cast<void>(model()), m_is_past = true; }

  /// The one Python object of an entity; null for null.
  std::shared_ptr<Entity> entity(const igsObject* object);
  /// All entities, in the order of their DE numbers.
  EntityList entities();
  /// A new entity. Throws a ValueError where no class stands for the type and form.
  std::shared_ptr<Entity> add(int type, int form);
  /// As long as arrays refer to its memory (Entity::export_array), an entity cannot be removed.
  void remove(Entity& entity);
  /// How many entities were removed: what was listed before may be gone.
  int num_removed() const { return m_num_removed; }

  /// What the entities look like; made anew after a change.
  FileShapes& shapes();

 private:
  friend class Entity;

  std::unique_ptr<Model> m_model;
  std::shared_ptr<FilesOfThread> m_files;
  bool m_was_read = false;
  std::string m_fault;
  bool m_is_changed = false;
  bool m_is_past = false;
  int m_num_removed = 0;
  std::unordered_map<const igsObject*, Entity*> m_entities;
  std::shared_ptr<const std::vector<const igsObject*>> m_all;  ///< null until they are asked for
  std::unique_ptr<FileShapes> m_shapes;
};
