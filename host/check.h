// qvslm check: whether a file is whole, or where it breaks.
#pragma once

namespace host {

struct CheckOptions {
  bool json = false;
};

}  // namespace host
