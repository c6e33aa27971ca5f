/*
 * Opens packages and prints what it finds in each: the report, the sum of the images' bytes and the
 * damage.
 *
 *     view_reporter PACKAGE ...
 */
#include <stdlib.h>

#include "view/view_report.h"

static void fail(const char* path) {
  fprintf(stderr, "view_reporter: cannot read %s\n", path);
  exit(2);
}

static uint8_t* read_file(const char* path, size_t* size) {
  FILE* file = fopen(path, "rb");
  uint8_t* bytes = NULL;
  long length = 0;
  if (file == NULL || fseek(file, 0, SEEK_END) != 0 || (length = ftell(file)) < 0 ||
      fseek(file, 0, SEEK_SET) != 0) {
    fail(path);
  }
  bytes = malloc((size_t)length + 1);
  if (bytes == NULL || fread(bytes, 1, (size_t)length, file) != (size_t)length) {
    fail(path);
  }
  fclose(file);
  *size = (size_t)length;
  return bytes;
}

static void print_images(const struct morvane_view* view) {
  struct morvane_view_dvi dvi;
  struct morvane_bytes image;
  int status = morvane_view_first(view, &dvi);
  while (status == MORVANE_VIEW_OK && morvane_view_image(view, &dvi, &image) == MORVANE_VIEW_OK) {
    unsigned sum = 0;
    size_t i = 0;
    for (i = 0; i < image.size; ++i) {
      sum += image.bytes[i];
    }
    printf("image %u: %lu bytes at %lu, their sum is %u\n", dvi.position, (unsigned long)image.size,
           (unsigned long)(image.bytes - view->bytes), sum);
    status = morvane_view_next(view, &dvi);
  }
}

int main(int argc, char** argv) {
  int i = 0;
  for (i = 1; i < argc; ++i) {
    struct morvane_view view;
    struct morvane_view_damage damage;
    size_t size = 0;
    uint8_t* bytes = read_file(argv[i], &size);
    if (morvane_view_open(&view, bytes, size, &damage) != MORVANE_VIEW_OK) {
      printf("%s at %lu, DVI %u: %lu bytes claimed, %lu present\n",
             morvane_view_status_text(damage.status), (unsigned long)damage.offset, damage.dvi,
             (unsigned long)damage.claimed, (unsigned long)damage.present);
    }
    printf("status of the report: %d\n", print_view_report(stdout, &view));
    print_images(&view);
    free(bytes);
  }
  return 0;
}
