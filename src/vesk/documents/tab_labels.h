#pragma once

#include <QStringList>

/// What tabs say of documents. Any thread.
namespace tab_labels {

/// Of each name what tells it from the most similar other one, with an ellipsis for what is cut
/// off in front: "IMG_0412.jpg" among other shots of that camera becomes "…0412". Numbers and words
/// stay whole. A suffix goes where the name without it is the only one. In the order of names; a
/// single name, and one without a relative, keep their beginning.
QStringList shortened(const QStringList &names);

} // namespace tab_labels
