#include "platform/macos/interface/view/PartFactory.h"

#include "platform/macos/interface/view/TLMButtonPart.h"
#include "platform/macos/interface/view/TLMEqualizerPart.h"
#include "platform/macos/interface/view/TLMPicturePart.h"
#include "platform/macos/interface/view/TLMSectionPart.h"
#include "platform/macos/interface/view/TLMSegmentPart.h"
#include "platform/macos/interface/view/TLMStackPart.h"
#include "platform/macos/interface/view/TLMSymbolPart.h"
#include "platform/macos/interface/view/TLMTextPart.h"
#include "platform/macos/interface/view/TLMTogglePart.h"

namespace talmo {

NSView<TLMPart>* makePart(const View& view, ViewRole container) {
  switch (view.kind) {
    case ViewKind::vertical:
      if (view.role == ViewRole::section) return [[TLMSectionPart alloc] initWithMaker:&makePart];
      return [[TLMStackPart alloc] initWithView:view container:container maker:&makePart];
    case ViewKind::horizontal:
      return [[TLMStackPart alloc] initWithView:view container:container maker:&makePart];
    case ViewKind::text:
      return [[TLMTextPart alloc] initWithRole:view.role container:container];
    case ViewKind::symbol:
    case ViewKind::asset:
      return [[TLMSymbolPart alloc] initWithView:view container:container];
    case ViewKind::picture:
      return [[TLMPicturePart alloc] initWithRole:view.role];
    case ViewKind::button:
      return [[TLMButtonPart alloc] initWithRole:view.role maker:&makePart];
    case ViewKind::equalizer:
      return [[TLMEqualizerPart alloc] init];
    case ViewKind::segment:
      return [[TLMSegmentPart alloc] init];
    case ViewKind::toggle:
      return [[TLMTogglePart alloc] initWithOn:view.isOn];
  }
}

}  // namespace talmo
