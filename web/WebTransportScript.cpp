#include "web/WebTransportScript.h"

namespace talmo {

std::string WebTransportScript::click(std::string_view selector) {
  return "var e=document.querySelector('" + std::string(selector) + "'); if(e){e.click();} 'ok'";
}

WebTransportScript WebTransportScript::clicking(std::string_view toggle, std::string_view next,
                                                std::string_view previous) {
  return {click(toggle), click(next), click(previous)};
}

}  // namespace talmo
