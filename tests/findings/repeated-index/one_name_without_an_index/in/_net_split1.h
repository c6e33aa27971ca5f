#define net_split1_DAG_NAME "net_split1"
#define net_split1_image_size 5
#define net_split1_image_start 8192
