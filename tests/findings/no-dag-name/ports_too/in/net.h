#define net_image_size 5
/* net HMB_input a */
#define net_a_W 3
/* net HMB_output b */
