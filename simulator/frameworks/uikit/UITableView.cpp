#include "simulator/frameworks/uikit/UITableView.hpp"

namespace sim {

void defineUITableView() {
  ClassBuilder<UITableView, UIScrollView>("UITableView", "UIScrollView")
      .getter<&UITableView::editing>("isEditing")
      .property<&UITableView::editing>("editing")
      .add();
}

}  // namespace sim
