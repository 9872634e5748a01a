// The look of all widgets: the desktop's, but for what does not suit windows that are scaled.
#pragma once

namespace ardane {

/// Takes the style for all widgets to come. Once for each application.
void install_style();

}  // namespace ardane
