// One step of peak editing that can be undone.
#pragma once

#include <QUndoCommand>
#include <functional>

#include "ui/plot/model/PeakPicker.h"

namespace talven {

/// Steps of the same kind in a row, such as the moves of a slider, are one step; those of kind -1 never are.
class PeakCommand : public QUndoCommand {
 public:
  using Apply = std::function<void(const PeakChoices&)>;

  PeakCommand(const QString& text, PeakChoices before, PeakChoices after, Apply apply, int kind = -1)
      : QUndoCommand(text),
        before_(std::move(before)),
        after_(std::move(after)),
        apply_(std::move(apply)),
        kind_(kind) {}

  void undo() override { apply_(before_); }
  void redo() override { apply_(after_); }
  int id() const override { return kind_; }
  bool mergeWith(const QUndoCommand* later) override {
    after_ = static_cast<const PeakCommand*>(later)->after_;
    return true;
  }

 private:
  PeakChoices before_;
  PeakChoices after_;
  Apply apply_;
  int kind_;
};

}  // namespace talven
