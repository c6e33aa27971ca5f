#define net_DAG_NAMES net
#define S_image_size 5
#define S_dagbin_start 1
#define net_image_size 5
