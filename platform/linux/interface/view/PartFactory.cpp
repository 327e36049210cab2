#include "platform/linux/interface/view/PartFactory.h"

#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/interface/view/EqualizerPart.h"
#include "platform/linux/interface/view/PicturePart.h"
#include "platform/linux/interface/view/SectionPart.h"
#include "platform/linux/interface/view/SegmentPart.h"
#include "platform/linux/interface/view/StackPart.h"
#include "platform/linux/interface/view/TextPart.h"
#include "platform/linux/interface/view/TogglePart.h"
#include "platform/linux/interface/view/VectorPart.h"

namespace talmo {

Part* makePart(const View& view, ViewRole container, const Look& look, QWidget* parent) {
  switch (view.kind) {
    case ViewKind::vertical:
      if (view.role == ViewRole::section) return new SectionPart(view, look, parent);
      return new StackPart(view, container, look, parent);
    case ViewKind::horizontal:
      return new StackPart(view, container, look, parent);
    case ViewKind::text:
      return new TextPart(view, container, look, parent);
    case ViewKind::symbol:
    case ViewKind::asset:
      return new VectorPart(view, container, look, parent);
    case ViewKind::picture:
      return new PicturePart(view, look, parent);
    case ViewKind::button:
      return new ButtonPart(view, look, parent);
    case ViewKind::equalizer:
      return new EqualizerPart(view, look, parent);
    case ViewKind::segment:
      return new SegmentPart(view, look, parent);
    case ViewKind::toggle:
      return new TogglePart(view, look, parent);
  }
  return nullptr;
}

}  // namespace talmo
