// Names that are offered below a field while it is typed into.
#pragma once

#include <QLineEdit>
#include <functional>

namespace talven {

/// Offers those names that begin with what stands in the field, in any case. Enter takes the one that was gone to with
/// the arrow keys; where none was, `accept` is called, as Enter does without the list.
void OfferNames(QLineEdit& edit, const QStringList& names, std::function<void()> accept);

}  // namespace talven
