#include "ResourceManager.h"

#include "LogManager.h"
#include "Music.h"
#include "Sound.h"
#include "Sprite.h"
#include "internal/SpriteReader.h"
#include "utility.h"

#include <algorithm>
#include <fstream>

namespace gw {

namespace {

constexpr int NOT_FOUND = -1;

/// The place of the first resource with that label in a table of sprites, sounds
/// or musics, or `NOT_FOUND`.
template <class Table> int find(const Table &table, int count, const std::string &label) {
  const auto end = table.begin() + count;
  const auto found = std::find_if(table.begin(), end, [&](const auto *resource) {
    return resource->getLabel() == label;
  });
  return found == end ? NOT_FOUND : static_cast<int>(found - table.begin());
}

template <class Table, class Resource>
void append(Table &table, int &count, Resource *p_resource) {
  table[static_cast<std::size_t>(count++)] = p_resource;
}

/// Deletes the resource at `index`; those behind it move down.
template <class Table> void remove(Table &table, int &count, int index) {
  const auto place = table.begin() + index;
  delete *place;
  std::copy(place + 1, table.begin() + count, place);
  count--;
}

/// Deletes all of them.
template <class Table> void removeAll(Table &table, int &count) {
  std::for_each(table.begin(), table.begin() + count,
                [](const auto *resource) { delete resource; });
  count = 0;
}

/// The resource with that label, or null with a WARNING made with `complaint`.
template <class Table>
auto get(const Table &table, int count, const std::string &label, const char *complaint)
    -> typename Table::value_type {
  const int index = find(table, count, label);
  if (index == NOT_FOUND) {
    LogManager::getInstance().writeLog(WARNING, complaint, label.c_str());
    return nullptr;
  }
  return table[static_cast<std::size_t>(index)];
}

/// Removes the resource with that label, announced at DEBUG.
/// @return 0, or -1 with a WARNING made with `complaint`
template <class Table>
int unload(Table &table, int &count, const std::string &label, const char *complaint,
           const char *announcement) {
  LogManager &log = LogManager::getInstance();
  const int index = find(table, count, label);
  if (index == NOT_FOUND) {
    log.writeLog(WARNING, complaint, label.c_str());
    return -1;
  }
  log.writeLog(DEBUG, announcement, label.c_str());
  remove(table, count, index);
  return 0;
}

/// A WARNING for each that has the label of one before it.
template <class Table>
void warnOfShared(const Table &table, int count, const char *kind) {
  for (int i = 0; i < count; i++) {
    const std::string label = table[static_cast<std::size_t>(i)]->getLabel();
    if (find(table, count, label) < i)
      LogManager::getInstance().writeLog(
          WARNING,
          "gw::ResourceManager::warnOfSharedLabels() - %s with label '%s' was loaded "
          "more than once. The first one is found.",
          kind, label.c_str());
  }
}

/// The sprite in the file, or null with ERRORs.
std::unique_ptr<Sprite> readSpriteFile(const std::string &filename,
                                       const std::string &label) {
  LogManager &log = LogManager::getInstance();
  std::ifstream file;
  if (isRegularFile(filename))
    file.open(filename, std::ios::binary);
  if (!file.is_open()) {
    log.writeLog(ERROR,
                 "gw::ResourceManager::loadSprite() - Could not open sprite file '%s'.",
                 filename.c_str());
    return nullptr;
  }
  std::string remark;
  std::unique_ptr<Sprite> sprite = readSprite(file, remark);
  if (!sprite)
    log.writeLog(ERROR, "gw::ResourceManager::loadSprite() - Sprite '%s' not loaded.",
                 label.c_str());
  if (!remark.empty())
    log.writeLog(WARNING, "gw::ResourceManager::loadSprite() - File '%s', %s.",
                 filename.c_str(), remark.c_str());
  return sprite;
}

} // namespace

ResourceManager::ResourceManager() {
  setType("ResourceManager");
}

ResourceManager &ResourceManager::getInstance() {
  static ResourceManager instance;
  return instance;
}

int ResourceManager::startUp() {
  LogManager &log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog(INFO, "ResourceManager is already started.");
    return 0;
  }
  removeAll(sprites, sprite_count);
  failed_sprites.clear();
  Manager::startUp();
  log.writeLog(INFO, "ResourceManager is started up.");
  return 0;
}

void ResourceManager::shutDown() {
  LogManager &log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog(INFO, "ResourceManager is already shut down.");
    return;
  }
  log.writeLog(INFO, "ResourceManager is shutting down.");
  removeAll(sprites, sprite_count);
  removeAll(sounds, sound_count);
  removeAll(musics, music_count);
  Manager::shutDown();
}

int ResourceManager::loadSprite(std::string filename, std::string label) {
  LogManager &log = LogManager::getInstance();
  log.writeLog(INFO,
               "gw::ResourceManager::loadSprite() - Loading sprite with label '%s' from "
               "file '%s'.",
               label.c_str(), filename.c_str());
  if (sprite_count == MAX_SPRITES) {
    log.writeLog(WARNING, "gw::ResourceManager::loadSprite() - Sprite array is full. "
                          "Cannot load new sprite.");
    return -1;
  }
  std::unique_ptr<Sprite> sprite = readSpriteFile(filename, label);
  if (!sprite) {
    failed_sprites.insert(label);
    return -1;
  }
  failed_sprites.erase(label);
  sprite->setLabel(label);
  append(sprites, sprite_count, sprite.release());
  return 0;
}

bool ResourceManager::hasSpriteFailed(const std::string &label) const {
  return failed_sprites.count(label) > 0;
}

int ResourceManager::unloadSprite(std::string label) {
  return unload(
      sprites, sprite_count, label,
      "gw::ResourceManager::unloadSprite() - Could not find loaded Sprite with "
      "label '%s'.",
      "gw::ResourceManager::unloadSprite() - Unloading sprite with label '%s'.");
}

Sprite *ResourceManager::getSprite(std::string label) const {
  return get(sprites, sprite_count, label,
             "gw::ResourceManager::getSprite() - Could not find loaded Sprite with label "
             "'%s'.");
}

int ResourceManager::loadSound(std::string filename, std::string label) {
  LogManager &log = LogManager::getInstance();
  log.writeLog(INFO,
               "gw::ResourceManager::loadSound() - Loading sound with label '%s' from "
               "file '%s'.",
               label.c_str(), filename.c_str());
  if (sound_count == MAX_SOUNDS) {
    log.writeLog(WARNING,
                 "gw::ResourceManager::loadSound() - Sound array is full. Cannot "
                 "load new Sound.");
    return -1;
  }
  auto sound = std::make_unique<Sound>();
  if (sound->loadSound(filename) != 0) {
    log.writeLog(
        ERROR, "gw::ResourceManager::loadSound() - Unable to load Sound '%s' from file.",
        label.c_str());
    return -1;
  }
  sound->setLabel(label);
  append(sounds, sound_count, sound.release());
  return 0;
}

int ResourceManager::unloadSound(std::string label) {
  return unload(sounds, sound_count, label,
                "gw::ResourceManager::unloadSound() - Could not find loaded Sound with "
                "label '%s'.",
                "gw::ResourceManager::unloadSound() - Unloading sound with label '%s'.");
}

Sound *ResourceManager::getSound(std::string label) {
  return get(sounds, sound_count, label,
             "gw::ResourceManager::getSound() - Could not find loaded Sound with label "
             "'%s'.");
}

int ResourceManager::loadMusic(std::string filename, std::string label) {
  LogManager &log = LogManager::getInstance();
  log.writeLog(INFO,
               "gw::ResourceManager::loadMusic() - Loading music with label '%s' from "
               "file '%s'.",
               label.c_str(), filename.c_str());
  if (music_count == MAX_MUSICS) {
    log.writeLog(WARNING,
                 "gw::ResourceManager::loadMusic() - Music array is full. Cannot "
                 "load new Music.");
    return -1;
  }
  auto music = std::make_unique<Music>();
  if (music->loadMusic(filename) != 0) {
    log.writeLog(
        ERROR, "gw::ResourceManager::loadMusic() - Unable to load Music '%s' from file.",
        label.c_str());
    return -1;
  }
  music->setLabel(label);
  append(musics, music_count, music.release());
  return 0;
}

int ResourceManager::unloadMusic(std::string label) {
  if (label.empty()) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::ResourceManager::unloadMusic() - Cannot unload Music with label "
                 "\"\". Ignoring.");
    return -1;
  }
  return unload(musics, music_count, label,
                "gw::ResourceManager::unloadMusic() - Could not find loaded Music with "
                "label '%s'.",
                "gw::ResourceManager::unloadMusic() - Unloading music with label '%s'.");
}

void ResourceManager::warnOfSharedLabels() const {
  warnOfShared(sprites, sprite_count, "Sprite");
  warnOfShared(sounds, sound_count, "Sound");
  warnOfShared(musics, music_count, "Music");
}

Music *ResourceManager::getMusic(std::string label) {
  return get(musics, music_count, label,
             "gw::ResourceManager::getMusic() - Could not find loaded Music with label "
             "'%s'.");
}

} // namespace gw
