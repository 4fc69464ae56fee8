#pragma once

#include <QObject>

namespace Ui {
class MagicSquare2;
}

namespace quarvelle {

struct ProgramState;

/// The menu items that choose what is printed, whether answers are shaded, and the difficulty. Each writes
/// its value into a field of the state.
class OptionMenus : public QObject {
    Q_OBJECT

public:
    /// Both outlive the object.
    OptionMenus(ProgramState& state, const Ui::MagicSquare2& window);
};

} // namespace quarvelle
