#pragma once

#include "ui/guide/GuideCheck.h"

#include <QWidget>

namespace pello {

/// One thing that the launcher needs, with a sign that says how it stands.
class CheckRow final : public QWidget {
public:
    CheckRow(const GuideCheck& check, QWidget* parent);
};

} // namespace pello
