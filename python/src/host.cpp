#include "host.h"

#include <atomic>
#include <mutex>
#include <ostream>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "entity.h"
#include "entity_list.h"
#include "findings/check.h"
#include "shapes.h"

class FilesOfThread {
 public:
  /// Those of this thread. Deletes what other threads have given back.
  static std::shared_ptr<FilesOfThread> here();

  /// Threads have the numbers of threads that have ended.
  bool is_here() const { return !m_has_ended && std::this_thread::get_id() == m_thread; }
  void give_back(std::unique_ptr<Model> model);
  void end();

 private:
  void delete_returned();

  const std::thread::id m_thread = std::this_thread::get_id();
  std::mutex m_mutex;
  std::vector<std::unique_ptr<Model>> m_returned;
  std::atomic<bool> m_has_ended = false;
};

namespace {

/// Ends with its thread, before the registry of its files does, which has to be there first.
class ThisThread {
 public:
  ThisThread() { igsObjectSystem::initialize_system(); }
  ~ThisThread() { m_files->end(); }
  ThisThread(const ThisThread&) = delete;
  ThisThread& operator=(const ThisThread&) = delete;
  const std::shared_ptr<FilesOfThread>& files() const { return m_files; }

 private:
  std::shared_ptr<FilesOfThread> m_files = std::make_shared<FilesOfThread>();
};

}  // namespace

std::shared_ptr<FilesOfThread> FilesOfThread::here() {
  thread_local const ThisThread thread;
  thread.files()->delete_returned();
  return thread.files();
}

void FilesOfThread::give_back(std::unique_ptr<Model> model) {
  if (is_here()) return model.reset();
  const std::lock_guard lock(m_mutex);
  if (m_has_ended) {
    // The registry of its thread is gone, and no other may delete it.
    static_cast<void>(model.release());  // NOLINT(bugprone-unused-return-value)
  } else {
    m_returned.push_back(std::move(model));
  }
}

void FilesOfThread::end() {
  delete_returned();
  const std::lock_guard lock(m_mutex);
  m_has_ended = true;
}

void FilesOfThread::delete_returned() {
  std::vector<std::unique_ptr<Model>> returned;
  const std::lock_guard lock(m_mutex);
  returned.swap(m_returned);
}

std::shared_ptr<Host> Host::read(const std::string& name, std::istream& stream, const igsFileOptions& options) {
  std::shared_ptr<FilesOfThread> files = FilesOfThread::here();
  std::unique_ptr<Model> model;
  {
    const py::gil_scoped_release unlocked;
    model = std::make_unique<Model>(name, OpenStream{stream});
    if (const std::string error = model->open_error(); !error.empty()) throw UnreadableFile(name, error);
    model->set_options(options);
    std::ostream nowhere(nullptr);
    model->read(nowhere);
  }
  auto host = std::make_shared<Host>(std::move(model), std::move(files));
  host->m_was_read = true;
  host->m_fault = what_is_missing(*host->m_model);
  return host;
}

std::shared_ptr<Host> Host::make(const std::string& name, const igsFileOptions& options) {
  std::shared_ptr<FilesOfThread> files = FilesOfThread::here();
  auto model = std::make_unique<Model>(name, InMemory{});
  model->set_options(options);
  igsGlobalSection global = model->file().global_section();
  for (const int unset : {7, 8, 9, 10, 11, 19, 20}) global.repair(unset);
  global.set_iges_version(global.max_version());
  model->file().set_global_section(global);
  return std::make_shared<Host>(std::move(model), std::move(files));
}

Host::Host(std::unique_ptr<Model> model, std::shared_ptr<FilesOfThread> files)
    : m_model(std::move(model)), m_files(std::move(files)) {}

Host::~Host() { m_files->give_back(std::move(m_model)); }

Model& Host::model() const {
  if (!m_files->is_here()) throw std::runtime_error("a file belongs to the thread that made it, and this is another");
  return *m_model;
}

igsFile& Host::changed_file() {
  if (m_is_past)
    throw std::runtime_error("this is the file as it was before its repair, which does not change any more");
  igsFile& file = model().file();
  m_is_changed = true;
  m_shapes.reset();
  return file;
}

std::shared_ptr<Entity> Host::entity(const igsObject* object) {
  if (object == nullptr) return nullptr;
  const auto known = m_entities.find(object);
  if (known != m_entities.end()) return known->second->shared_from_this();
  // What is changed by an entity's Python object asks for changed_file() first.
  std::shared_ptr<Entity> entity = make_entity(shared_from_this(), const_cast<igsObject&>(*object));
  m_entities.emplace(object, entity.get());
  return entity;
}

EntityList Host::entities() {
  const igsFile& now = file();
  if (m_all == nullptr) {
    std::vector<const igsObject*> objects;
    igsFileIT each(&now);
    while (++each != 0) objects.push_back(each());
    m_all = std::make_shared<const std::vector<const igsObject*>>(std::move(objects));
  }
  return {shared_from_this(), m_all};
}

std::shared_ptr<Entity> Host::add(int type, int form) {
  const std::string kind = "entities of type " + std::to_string(type) + ", form " + std::to_string(form);
  const igsFileOptions& options = file().options();
  if (type <= 0 || !igsInfoDB::form_exists(type, form, options)) {
    throw py::value_error("the standard has no " + kind);
  }
  igsFile& target = changed_file();
  const igsFileScope scope(target);
  igsObject* const object = igsFactory::make_one(static_cast<igsEntityType>(type), form, options);
  if (igs_cast<igsUnknown>(object) != nullptr) {
    delete object;
    throw py::value_error("there is no class for " + kind);
  }
  object->directory_entry().set_form_number(form);
  m_all.reset();
  return entity(object);
}

void Host::remove(Entity& entity) {
  static_cast<void>(entity.object());
  if (&entity.host() != this) throw py::value_error("the entity is not of this file");
  if (entity.has_exports()) throw py::buffer_error("arrays of the entity are in use");
  igsObject& object = entity.changed_object();
  m_entities.erase(&object);
  m_all.reset();
  ++m_num_removed;
  entity.forget_object();
  delete &object;
}

FileShapes& Host::shapes() {
  const igsFile& entities = file();
  if (m_shapes == nullptr) m_shapes = std::make_unique<FileShapes>(entities);
  return *m_shapes;
}
