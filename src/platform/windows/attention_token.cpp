// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "attention_token.h"

#include <QString>

#include <memory>

#include "xdg-activation-v1.h"

namespace {

void BindActivation(void* data, wl_registry* registry, uint32_t name, const char* interface,
                    uint32_t /*version*/) {
  if (qstrcmp(interface, xdg_activation_v1_interface.name) != 0) return;
  *static_cast<xdg_activation_v1**>(data) = static_cast<xdg_activation_v1*>(
      wl_registry_bind(registry, name, &xdg_activation_v1_interface, 1));
}

void Forget(void* /*data*/, wl_registry* /*registry*/, uint32_t /*name*/) {}

void TakeToken(void* data, xdg_activation_token_v1* /*request*/, const char* token) {
  *static_cast<QByteArray*>(data) = token;
}

}  // namespace

std::optional<QByteArray> RequestAttentionToken() {
  // What the toolkit would choose, given the same environment.
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("wayland")) return std::nullopt;
  // Without it there is no compositor, of which the library would tell at length.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) return std::nullopt;
  const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> display(
      wl_display_connect(nullptr), &wl_display_disconnect);
  if (!display) return std::nullopt;

  xdg_activation_v1* found = nullptr;
  const wl_registry_listener announcements{BindActivation, Forget};
  const std::unique_ptr<wl_registry, decltype(&wl_registry_destroy)> registry(
      wl_display_get_registry(display.get()), &wl_registry_destroy);
  wl_registry_add_listener(registry.get(), &announcements, &found);
  wl_display_roundtrip(display.get());
  const std::unique_ptr<xdg_activation_v1, decltype(&xdg_activation_v1_destroy)> activation(
      found, &xdg_activation_v1_destroy);
  if (!activation) return QByteArray();

  QByteArray token;
  const xdg_activation_token_v1_listener answer{TakeToken};
  const std::unique_ptr<xdg_activation_token_v1, decltype(&xdg_activation_token_v1_destroy)>
      request(xdg_activation_v1_get_activation_token(activation.get()),
              &xdg_activation_token_v1_destroy);
  xdg_activation_token_v1_add_listener(request.get(), &answer, &token);
  xdg_activation_token_v1_commit(request.get());
  wl_display_roundtrip(display.get());
  return token;
}
