#pragma once

class QWidget;

namespace Tesk {

/// Gives an input field the light red ground of a field in error, or the white one of a field in
/// order. Its text is black on both, whatever the desktop's scheme.
void ShowFieldError(QWidget *field, bool isError);
bool ShowsFieldError(const QWidget *field);

} // namespace Tesk
