// The items of a list control.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ardane {

/// Texts that are replaced all at once. Copies share them, so that whoever shows them knows at once, by a
/// copy of his own, that they are still the same, however many there are.
class Eléments {
 public:
  using Textes = std::vector<std::string>;
  using value_type = std::string;
  using const_iterator = Textes::const_iterator;
  using iterator = const_iterator;

  Eléments() = default;
  Eléments(Textes textes) : textes_(std::make_shared<const Textes>(std::move(textes))) {}
  Eléments(std::initializer_list<std::string> textes) : Eléments(Textes(textes)) {}

  operator const Textes &() const { return textes(); }
  const_iterator begin() const { return textes().begin(); }
  const_iterator end() const { return textes().end(); }
  std::size_t size() const { return textes().size(); }
  bool empty() const { return textes().empty(); }
  const std::string &operator[](std::size_t i) const { return textes()[i]; }
  const std::string &at(std::size_t i) const { return textes().at(i); }

  friend bool operator==(const Eléments &a, const Eléments &b) {
    return a.textes_ == b.textes_ || a.textes() == b.textes();
  }

 private:
  const Textes &textes() const {
    static const Textes aucun;
    return textes_ == nullptr ? aucun : *textes_;
  }

  std::shared_ptr<const Textes> textes_;  ///< null for none: most controls are no lists
};

}  // namespace ardane
