#define net_image_size 5
