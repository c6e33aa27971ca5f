#define b_DAG_NAME "b"
#define b_image_size 5
/* b HMB_input data */
#define b_data_W 4
