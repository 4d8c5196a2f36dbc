// SPDX-License-Identifier: MIT
#include "results/row_rights.h"

namespace scourwell {
namespace {

bool Refuses(Registry& registry, const RegistryPlace& key) {
  return registry.TryOpen(key.root, key.path, kKeyAllRights) == kRegAccessDenied;
}

}  // namespace

bool HasAllRights(Registry& registry) {
  return !Refuses(registry, {RootKey::LocalMachine, "Software"});
}

void LockRefusedRows(HitList* hits, Registry& registry, Registry* registry64) {
  if (HasAllRights(registry)) return;
  for (std::size_t i = 0; i < hits->size(); ++i) {
    const FoundObject& object = hits->row(i).finding.object;
    const auto* key = std::get_if<FoundKey>(&object);
    const auto* value = std::get_if<FoundValue>(&object);
    if (!key && !value) continue;
    const bool view64 = key ? key->view64 : value->view64;
    Registry* view = view64 ? registry64 : &registry;
    if (view && Refuses(*view, key ? key->place : value->key)) hits->Lock(i);
  }
}

}  // namespace scourwell
