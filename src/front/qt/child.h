// Qt's ownership: a parent deletes its children.
#pragma once

#include <memory>
#include <utility>

namespace ardane {

/// Makes an object that its Qt parent, one of the arguments or given at once, owns.
template <class Object, class... Arguments>
Object *make_child(Arguments &&...arguments) {
  return std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}

}  // namespace ardane
