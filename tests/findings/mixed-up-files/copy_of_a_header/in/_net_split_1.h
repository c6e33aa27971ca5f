#define eyes_DAG_NAME "eyes"
#define eyes_image_size 5
#define eyes_image_start 4096
