#pragma once

#include "EventKeyboard.h"
#include "EventMouse.h"
#include "Manager.h"

#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>

#include <functional>
#include <utility>

namespace sf {
class Event;
}

namespace gw {

/// Turns the window's input into events, which every object hears. Keys and buttons are
/// never polled. Starts after the display manager and stops before it.
class InputManager : public Manager {
public:
  /// The only one.
  static InputManager &getInstance();

  /// Turns key repeat off. @return 0, also when already started; -1 with a
  /// WARNING when the display manager is not started
  int startUp() override;

  /// Turns key repeat on again. Events that were posted and not yet handled are
  /// dropped, also when the manager was not started.
  void shutDown() override;

  /// Takes every event that was posted and then every pending event from the
  /// window, in order, and broadcasts what is a key or mouse event at once.
  /// Closing the window sets the game-over flag. Without a window there are only
  /// posted events.
  void getInput() const;

  /// Has the next `getInput` handle that event as if the window had delivered it.
  /// For demos, replays and tests.
  void postEvent(const sf::Event &event) const;

  /// Sees a key or mouse event before any object does; `is_posted` tells those of
  /// `postEvent` from the window's. @return whether the objects are to hear of it
  using Filter = std::function<bool(const Event &event, bool is_posted)>;

  /// Has every key and mouse event pass there. An empty function ends it.
  void setFilter(Filter new_filter) { filter = std::move(new_filter); }

  /// The engine's key or button for one of the window library's; undefined for all
  /// others, whatever the number. (A pressed or released key without a code, as on a
  /// keyboard layout of another script, counts as the key at its place on a US
  /// keyboard.) @{
  Keyboard::Key mapSFMLKeyToGlidewingKey(sf::Keyboard::Key key) const;
  Mouse::Button mapSFMLButtonToGlidewingButton(sf::Mouse::Button button) const; ///@}

  /// The other way; what the window library has no code of its own for, or one that is
  /// undefined here, where the key or button is undefined. @{
  sf::Keyboard::Key mapGlidewingKeyToSFMLKey(Keyboard::Key key) const;
  sf::Mouse::Button mapGlidewingButtonToSFMLButton(Mouse::Button button) const; ///@}

  /// Whether the engine knows that key or button. @{
  bool isSFMLKeyValid(sf::Keyboard::Key key) const;
  bool isSFMLButtonValid(sf::Mouse::Button button) const; ///@}

private:
  InputManager();

  void handle(const sf::Event &event, bool is_posted) const;
  void send(const Event &event, bool is_posted) const;

  Filter filter; ///< may be empty
};

} // namespace gw
