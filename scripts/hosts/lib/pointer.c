// A pointer for compositors that know wlr-virtual-pointer. Called with the screen's width and
// height; reads lines "x y button" (0: none, 1: left, 3: right) from its input until that ends.
#include <linux/input-event-codes.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>
#include <wayland-client.h>

// The part of the protocol that is used here, with all requests, for their numbers are their order.
static const struct wl_interface pointer_interface;
static const struct wl_interface* none[5];
static const struct wl_interface* creation[2] = {NULL, &pointer_interface};
static const struct wl_message pointer_requests[] = {
    {"motion", "uff", none},     {"motion_absolute", "uuuuu", none}, {"button", "uuu", none},
    {"axis", "uuf", none},       {"frame", "", none},                {"axis_source", "u", none},
    {"axis_stop", "uu", none},   {"axis_discrete", "uufi", none},    {"destroy", "", none}};
static const struct wl_interface pointer_interface = {
    "zwlr_virtual_pointer_v1", 1, 9, pointer_requests, 0, NULL};
static const struct wl_message manager_requests[] = {{"create_virtual_pointer", "?on", creation},
                                                     {"destroy", "", none}};
static const struct wl_interface manager_interface = {
    "zwlr_virtual_pointer_manager_v1", 1, 2, manager_requests, 0, NULL};
enum { CREATE = 0, MOVE_TO = 1, BUTTON = 2, FRAME = 4 };

static struct wl_proxy* manager;

static void found(void* data, struct wl_registry* registry, uint32_t name, const char* interface,
                  uint32_t version) {
  (void)data, (void)version;
  if (strcmp(interface, manager_interface.name) == 0) {
    manager = wl_registry_bind(registry, name, &manager_interface, 1);
  }
}
static void lost(void* data, struct wl_registry* registry, uint32_t name) {
  (void)data, (void)registry, (void)name;
}

static uint32_t now(void) {
  struct timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return (uint32_t)(time.tv_sec * 1000 + time.tv_nsec / 1000000);
}

int main(int count, char** arguments) {
  struct wl_display* display = wl_display_connect(NULL);
  if (count != 3 || !display) { return 1; }
  struct wl_registry* registry = wl_display_get_registry(display);
  const struct wl_registry_listener listener = {found, lost};
  wl_registry_add_listener(registry, &listener, NULL);
  wl_display_roundtrip(display);
  if (!manager) { return 2; }
  struct wl_proxy* pointer =
      wl_proxy_marshal_constructor(manager, CREATE, &pointer_interface, NULL, NULL);
  wl_display_roundtrip(display);

  const unsigned width = (unsigned)atoi(arguments[1]);
  const unsigned height = (unsigned)atoi(arguments[2]);
  char line[100];
  unsigned x = 0;
  unsigned y = 0;
  unsigned button = 0;
  while (fgets(line, sizeof line, stdin) && sscanf(line, "%u %u %u", &x, &y, &button) == 3) {
    wl_proxy_marshal(pointer, MOVE_TO, now(), x, y, width, height);
    wl_proxy_marshal(pointer, FRAME);
    wl_display_roundtrip(display);
    usleep(150000);
    for (unsigned pressed = 2; button != 0 && pressed-- > 0;) {
      wl_proxy_marshal(pointer, BUTTON, now(), button == 1 ? BTN_LEFT : BTN_RIGHT, pressed);
      wl_proxy_marshal(pointer, FRAME);
      wl_display_roundtrip(display);
      usleep(60000);
    }
  }
  return 0;
}
